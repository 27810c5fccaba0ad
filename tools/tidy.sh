#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# clang-tidy with the short list of .clang-tidy over every source file of ours, tests and fuzz targets included, the
# digest not; a finding is an error. Hardly anything is compiled: moc and uic write what they have to, then the files
# are read, two at a time on two cores. A build with the preset tidy does the same beside compiling and takes twice as
# long. The benchmarks stay out: how Qt queues a call there looks like a leak to the analyzer, in a header that is not
# ours to annotate.
set -euo pipefail
cd "$(dirname "$0")/.."

build=build/tidy-database
mkdir -p "$build"
log=$build/tidy.log
generate() {
    cmake --preset tidy -B "$build" -D CMAKE_CXX_CLANG_TIDY= -D PROVENDER_FUZZ=ON
    # Built as targets, these would wait for the libraries that theirs link.
    find "$build" -name AutogenInfo.json -print0 | xargs -0 -P "$(nproc)" -I{} cmake -E cmake_autogen {} Debug
    mapfile -t headers < <(ninja -C "$build" -t targets all | sed -n 's/^\(ui\/[a-z/]*ui_[A-Za-z]*\.h\): .*/\1/p')
    ninja -C "$build" -t commands "${headers[@]}" | grep '/uic ' | sh
    cmake --build "$build" --target catalog/FoodNames.inc
}
if ! generate > "$log" 2>&1; then
    tail -n 20 "$log" >&2
    exit 1
fi

# The files of the tree alone: what is generated lies in the build folder.
files="^$(python3 -c 'import os, re; print(re.escape(os.getcwd()))')/(?!build/)"
count=$(grep '"file": ' "$build/compile_commands.json" | grep -v "\"$PWD/build/" | sort -u | wc -l)
# A warning is told by its words: version 14 of the runner fails for errors alone.
if ! run-clang-tidy -quiet -p "$build" -j "$(nproc)" "$files" > "$log" 2>&1 || grep -q -E '(warning|error): ' "$log"; then
    grep -E -A 4 '(warning|error): ' "$log" >&2
    echo "clang-tidy found something; all of it is in $log" >&2
    exit 1
fi
read=$(grep -c '^clang-tidy.* -quiet /' "$log" || true)
if ((read != count)); then
    echo "clang-tidy read $read of $count files; see $log" >&2
    exit 1
fi
echo "clang-tidy: $count files, nothing found"
