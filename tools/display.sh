# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# To be sourced. begin_display <width>x<height> <log>: starts a virtual display, whose process is then in $server and
# whose name in $DISPLAY. Whoever calls it ends the process.
begin_display() {
    # A number of its own: two servers that look for a free one at the same time may find the same.
    coproc display { exec Xvfb ":$((100 + $$ % 50000))" -displayfd 1 -screen 0 "$1x24" -nolisten tcp 2> "$2"; }
    # shellcheck disable=SC2034 # whoever sources this ends it
    server=$!
    local number
    if ! read -r -t 20 -u "${display[0]}" number; then
        echo "The virtual display did not start:" >&2
        cat "$2" >&2
        return 1
    fi
    export DISPLAY=:$number
}
