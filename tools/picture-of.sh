#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# picture-of.sh <picture.png> <program> [argument]...: starts the program on a virtual display of its own, waits until
# its window is painted, saves a picture of it and ends both. Nothing of the user's is read or written: the program's
# home is a folder beside the picture. Wants grab-screen beside the program.
set -euo pipefail
# shellcheck source=tools/display.sh
. "$(dirname "$0")/display.sh"

picture=$(realpath "$1")
shift
grab=$(dirname "$1")/grab-screen
home=${picture%.png}-home

rm -rf "$home"
mkdir -p "$home/run"
chmod 0700 "$home/run"
export HOME=$home XDG_RUNTIME_DIR=$home/run QT_QPA_PLATFORM=xcb
unset XDG_DATA_HOME XDG_CONFIG_HOME XDG_CACHE_HOME WAYLAND_DISPLAY

program=
server=
# shellcheck disable=SC2317 # called by the trap
end_both() {
    [[ -n $program ]] && kill "$program" 2> /dev/null
    [[ -n $server ]] && kill "$server" 2> /dev/null
    wait
}
trap end_both EXIT

begin_display 1280x800 "$home/display.log"

"$@" &
program=$!
status=0
"$grab" "$picture" || status=1

# Ended the way a session ends it; a program that then fails, fails here.
kill "$program" 2> /dev/null || true
ended=0
wait "$program" || ended=$?
program=
if ((ended != 0)); then
    echo "The program ended with code $ended." >&2
    exit 1
fi
((status == 0)) && echo "A picture of the window is in $picture"
exit "$status"
