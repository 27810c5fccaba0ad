#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# Installs what is missing, builds, and starts Provender. Without a display it starts on a virtual one, with an empty
# log of its own, and leaves a picture of the window in build/provender.png.
set -euo pipefail
cd "$(dirname "$0")"

groups=(build)
if [[ -n ${WAYLAND_DISPLAY:-} ]]; then
    groups+=(wayland)
elif [[ -z ${DISPLAY:-} ]]; then
    groups+=(virtual-display)
fi
tools/set-up.sh "${groups[@]}"

cmake --preset release --log-level=WARNING
cmake --build --preset release --target provender grab-screen

# Qt wants a private folder for sockets; without a login session there is none.
if [[ ! -O ${XDG_RUNTIME_DIR:-} ]]; then
    export XDG_RUNTIME_DIR=$PWD/build/runtime
    mkdir -p "$XDG_RUNTIME_DIR"
    chmod 0700 "$XDG_RUNTIME_DIR"
fi

if [[ -n ${WAYLAND_DISPLAY:-}${DISPLAY:-} ]]; then
    exec build/release/bin/provender
fi
echo 'There is no display here.'
exec tools/picture-of.sh build/provender.png build/release/bin/provender
