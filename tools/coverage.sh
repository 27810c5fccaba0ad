#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# Builds with instrumentation, runs every test and prints how much of our own code they reach: lines and branches, file
# by file, with the lines that no test reaches. Fails below 95 % of the lines or 85 % of the branches.
#
# The tests themselves, the benchmarks, the fuzz targets and what the build generates do not count. Nor do the branches
# that the compiler adds for exceptions, which nothing here throws, and those it marks as unreachable. A line that no
# test can reach, or whose process leaves no counts, says so in place, with its reason: GCOVR_EXCL_LINE, or from
# GCOVR_EXCL_START to GCOVR_EXCL_STOP.
set -euo pipefail
cd "$(dirname "$0")/.."

build=build/coverage
cmake --preset coverage > /dev/null
cmake --build --preset coverage
find "$build" -name '*.gcda' -delete # of an earlier run
ctest --preset coverage
status=0
gcovr --root . --object-directory "$build" \
    --exclude 'tests/' --exclude 'bench/' --exclude 'fuzz/' --exclude "$build/" \
    --exclude-throw-branches --exclude-unreachable-branches \
    --txt "$build/coverage.txt" --html-details "$build/coverage.html" --print-summary \
    --fail-under-line 95 --fail-under-branch 85 > "$build/summary.txt" || status=$?
cat "$build/coverage.txt" "$build/summary.txt"
exit "$status"
