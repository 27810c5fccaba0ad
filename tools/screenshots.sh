#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# screenshots.sh [build folder] [folder]: takes pictures of every window on a virtual display, light, dark, small and at
# 200 %, into pictures/ of the build folder, and copies those that the documents show to the other folder, docs/pictures.
# Nothing of the user's is read or written.
set -euo pipefail

root=$(dirname "$(realpath "$0")")/..
build=$(realpath "${1:-$root/build/release}")
pictures=$build/pictures
shown=$(realpath -m "${2:-$root/docs/pictures}")

cmake --build "$build" --target take-pictures provender > /dev/null
mkdir -p "$pictures" "$shown"
home=$(mktemp -d)
export HOME=$home XDG_RUNTIME_DIR=$home TZ=UTC LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb
unset XDG_DATA_HOME XDG_CONFIG_HOME XDG_CACHE_HOME WAYLAND_DISPLAY QT_SCALE_FACTOR

server=
# shellcheck disable=SC2317 # called by the trap
end_all() {
    [[ -n $server ]] && kill "$server" 2> /dev/null
    wait
    rm -rf "$home"
}
trap end_all EXIT

# A number of its own: two servers that look for a free one at the same time may find the same.
coproc display { exec Xvfb ":$((100 + $$ % 50000))" -displayfd 1 -screen 0 2400x1600x24 -nolisten tcp 2> "$home/display.log"; }
server=$!
if ! read -r -t 20 -u "${display[0]}" number; then
    echo "The virtual display did not start:" >&2
    cat "$home/display.log" >&2
    exit 1
fi
export DISPLAY=:$number

"$build/bin/take-pictures" "$pictures" day
"$build/bin/take-pictures" "$pictures" dark
QT_SCALE_FACTOR=2 "$build/bin/take-pictures" "$pictures" large
cp "$pictures"/{empty,main,dark,add-food,preferences}.png "$shown"
