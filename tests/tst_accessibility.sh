#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# tst_accessibility.sh <test.py> <work folder> <build folder>: installs the program below the work folder and runs a
# test of it on a display, a message bus and an accessibility bus of its own. All of them end with the test.
set -euo pipefail
# shellcheck source=tools/display.sh
. "$(dirname "$0")/../tools/display.sh"

test=$1
folder=$2
build=$3

rm -rf "$folder"
mkdir -p "$folder/run" "$folder/data"
chmod 0700 "$folder/run"
folder=$(realpath "$folder")
export HOME=$folder XDG_RUNTIME_DIR=$folder/run XDG_DATA_HOME=$folder/data XDG_CONFIG_HOME=$folder/config
export XDG_CACHE_HOME=$folder/cache TZ=UTC LC_ALL=C.UTF-8 NO_AT_BRIDGE=0
export QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 QT_SCALE_FACTOR=1
unset WAYLAND_DISPLAY SESSION_MANAGER AT_SPI_BUS_ADDRESS DBUS_SESSION_BUS_ADDRESS

cmake --install "$build" --prefix "$folder/prefix" > "$folder/install.log"

children=()
# shellcheck disable=SC2317 # called by the trap
end_all() {
    for child in "${children[@]}"; do
        kill "$child" 2> /dev/null || true
    done
    wait
}
trap end_all EXIT

begin_display 1280x900 "$folder/display.log"
children+=("$server")

mkfifo "$folder/address"
dbus-daemon --session --nofork --print-address=3 3> "$folder/address" 2> "$folder/bus.log" &
children+=("$!")
if ! read -r -t 20 DBUS_SESSION_BUS_ADDRESS < "$folder/address"; then
    echo "The message bus did not start:" >&2
    cat "$folder/bus.log" >&2
    exit 1
fi
export DBUS_SESSION_BUS_ADDRESS

launcher=
for place in /usr/libexec /usr/lib/at-spi2-core; do
    [[ -x $place/at-spi-bus-launcher ]] && launcher=$place/at-spi-bus-launcher
done
"${launcher:?at-spi-bus-launcher is not installed (Debian: at-spi2-core)}" --launch-immediately 2> "$folder/launcher.log" &
children+=("$!")

# Debian's own Python, which has the accessibility bindings, whatever other one comes first.
/usr/bin/python3 "$test" "$folder/prefix/bin/provender"
