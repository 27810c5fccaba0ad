#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# screenshots.sh [build folder] [folder]: takes pictures of every window on a virtual display, light, dark, small and at
# 200 %, into pictures/ of the build folder, and copies those that the documents show to the other folder, by default
# docs/pictures. For looking at there are also pictures of every window in every mix of light and dark, sizes, scales and
# letters, in pictures/sizes.
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

begin_display 6000x3400 "$home/display.log"

"$build/bin/take-pictures" "$pictures" day
"$build/bin/take-pictures" "$pictures" dark
QT_SCALE_FACTOR=2 "$build/bin/take-pictures" "$pictures" large
mkdir -p "$pictures/sizes"
for kind in day dark; do
    for scale in 1 1.5 2; do
        for dpi in 96 144; do
            for size in 640x400 800x500 1024x700 1920x1080 3840x2160; do
                [[ $size == 3840x2160 && $scale$dpi != 196 ]] && continue # such screens are the scaled ones
                QT_SCALE_FACTOR=$scale QT_FONT_DPI=$dpi "$build/bin/take-pictures" "$pictures/sizes" "$kind" "$size" \
                    "$kind-$size-$scale-$dpi"
            done
        done
    done
done
cp "$pictures"/{main,dark,add-food,another-day,foods-by-iron,preferences,history}.png "$shown"
