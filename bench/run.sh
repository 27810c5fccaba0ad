#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# Builds the benchmarks, runs them all and prints one table of what they measured, each figure beside its limit from the
# same run. The table goes to build/bench/figures.txt too, and with all its digits to build/bench/figures.json.
# Fails when a figure is over its limit. Takes a few minutes; times are judged on a quiet machine alone.
set -euo pipefail
cd "$(dirname "$0")/.."

mkdir -p build/bench
if ! { cmake --preset bench && cmake --build --preset bench; } > build/bench/build.log 2>&1; then
    tail -n 30 build/bench/build.log >&2
    exit 1
fi
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
exec python3 bench/report.py build/bench
