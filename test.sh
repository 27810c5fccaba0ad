#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# Installs what is missing, builds, and runs every test. Fails when one of them does.
set -euo pipefail
cd "$(dirname "$0")"

tools/set-up.sh build test
cmake --workflow --preset dev
