#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# screenshots.sh [build folder] [folder]: takes pictures of every window on a virtual display, light, dark, small and at
# 200 %, into pictures/ of the build folder, and copies those that the documents show to the other folder, by default
# docs/pictures.
# Nothing of the user's is read or written.
set -euo pipefail

root=$(dirname "$(realpath "$0")")/..
# shellcheck source=tools/display.sh
. "$root/tools/display.sh"
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

begin_display 2400x1600 "$home/display.log"

"$build/bin/take-pictures" "$pictures" day
"$build/bin/take-pictures" "$pictures" dark
QT_SCALE_FACTOR=2 "$build/bin/take-pictures" "$pictures" large
cp "$pictures"/{main,dark,add-food,preferences,history}.png "$shown"
