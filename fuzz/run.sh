#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# run.sh [seconds] [target]...: builds the fuzz targets and runs each (or those named) for so long (5 seconds unless
# said otherwise), one for each processor at a time. Fails when one finds something; the input lies in
# build/fuzz/findings then. Ends with 77, which the tests report as skipped, when clang or its fuzzing runtime is not
# installed.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-5}
shift || true
targets=("$@")
((${#targets[@]})) || targets=(numbertext propertylist foodrecord foodfile searchquery quantity history export store)

probe=$(mktemp)
trap 'rm -f "$probe"' EXIT
if ! clang++ -fsanitize=fuzzer,address -x c++ -o "$probe" - <<< \
    'extern "C" int LLVMFuzzerTestOneInput(const unsigned char *, unsigned long) { return 0; }' 2> /dev/null; then
    echo "SKIPPED: nothing was fuzzed, for want of clang++ with its fuzzing runtime (tools/set-up.sh fuzz installs both)"
    exit 77
fi

mkdir -p build/fuzz/findings
log=build/fuzz/build.log
if ! { cmake --preset fuzz && cmake --build --preset fuzz --target fuzz; } > "$log" 2>&1; then
    tail -n 30 "$log" >&2
    exit 1
fi

# Fails when the target finds something.
fuzz_target() {
    local target=$1 corpus=build/fuzz/corpus/$1 log=build/fuzz/$1.log verdict="nothing found" failed=0 executions
    mkdir -p "$corpus"
    # What makes new ground is kept in the first folder; the seeds are only read.
    if ! "build/fuzz/bin/fuzz_$target" -max_total_time="$seconds" -max_len=4096 -timeout=30 -print_final_stats=1 \
        -artifact_prefix="build/fuzz/findings/$target-" "$corpus" "fuzz/corpus/$target" > "$log" 2>&1; then
        verdict="FOUND SOMETHING: $log"
        failed=1
        grep -E -m 5 '^(does not hold|SUMMARY|==[0-9]+==ERROR|.*Test unit written)' "$log" >&2 || tail -n 5 "$log" >&2
    fi
    executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    printf '%-14s %10s executions in %s s: %s\n' "$target" "${executions:-?}" "$seconds" "$verdict"
    return "$failed"
}

failed=0
running=0
for target in "${targets[@]}"; do
    if ((running == $(nproc))); then
        wait -n || failed=1
        running=$((running - 1))
    fi
    fuzz_target "$target" &
    running=$((running + 1))
done
for ((; running; --running)); do
    wait -n || failed=1
done
exit "$failed"
