#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# Installs what is missing, builds, and runs every test. Fails when one of them does.
set -euo pipefail
cd "$(dirname "$0")"

tools/set-up.sh build test

# Qt wants a private folder for sockets; without a login session there is none.
if [[ ! -O ${XDG_RUNTIME_DIR:-} ]]; then
    export XDG_RUNTIME_DIR=$PWD/build/runtime
    mkdir -p "$XDG_RUNTIME_DIR"
    chmod 0700 "$XDG_RUNTIME_DIR"
fi
export QT_QPA_PLATFORM=offscreen
cmake --workflow --preset dev
