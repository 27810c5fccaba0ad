#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# try-package.sh <package.deb> [<former package.deb>]: what a person does with the package, in a bare Debian 12 root:
# installs it, starts the program as a user, adds a food, quits, exports the log, removes the package. With the package
# of a former version that one is used first, and once more after an upgrade: each version has to open what the other
# wrote. Wants root, the network, tools/set-up.sh build try and the release build; pictures, exports and the root stay
# under build/try-package. The display and the keys are those of this machine.
# shellcheck disable=SC2016 # what stands in single quotes is expanded by somebody else
set -euo pipefail
# shellcheck source=tools/display.sh
. "$(dirname "$0")/display.sh"

package=$(realpath "$1")
former=${2:+$(realpath "$2")}
project=$(cd "$(dirname "$0")/.." && pwd)
place=$project/build/try-package
root=$place/root
store=/home/eater/.local/share/provender/preferences.sqlite
# Where this machine's own packages come from.
mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Codename: bookworm' 'Component: main' 'Created-By: Packages' | head -n 1)

mkdir -p "$place"
if [[ -z $mirror ]]; then
    echo "apt on this machine has no Debian 12 to take packages from" >&2
    exit 1
fi
if [[ ! -f $place/bare.tar ]]; then
    rm -rf "$place/bare"
    debootstrap --variant=minbase bookworm "$place/bare" "$mirror" > "$place/debootstrap.log"
    tar -C "$place/bare" -cf "$place/bare.tar.new" .
    mv "$place/bare.tar.new" "$place/bare.tar"
    rm -rf "$place/bare"
fi
rm -rf --one-file-system "$root"
mkdir "$root"
tar -C "$root" -xf "$place/bare.tar"
cp -L /etc/resolv.conf "$root/etc/resolv.conf"

# in_root <command> [argument]...: in mount and process namespaces of its own, so that nothing stays mounted or running.
in_root() {
    unshare --mount --pid --fork --kill-child /bin/bash -c '
        mount --make-rprivate /
        mount --rbind /dev "$0/dev"
        mount -t proc proc "$0/proc"
        exec chroot "$0" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive "$@"' \
        "$root" "$@"
}

fail() {
    echo "FAIL: $1" >&2
    exit 1
}

# soon <command> [argument]...: whether the command succeeds within 20 seconds.
soon() {
    for ((attempt = 0; attempt < 200; attempt++)); do
        "$@" && return
        sleep 0.1
    done
    return 1
}

# There is no window manager, so the keys have to be sent to the topmost window: the last that xdotool lists.
windows() { xdotool search --onlyvisible --class provender 2> /dev/null; }
windows_are() { (($(windows | wc -l) == $1)); }
focus() { xdotool windowfocus --sync "$(windows | tail -n 1)"; }
# Taking a picture waits until the screen has settled, so keys that are sent afterwards find their window ready.
picture() { "$project/build/release/bin/grab-screen" "$place/$1.png"; }

apt=(in_root apt-get -q -y -o Dpkg::Use-Pty=0)
put_in() {
    cp "$1" "$root/provender.deb"
    "${apt[@]}" install --no-install-recommends --allow-downgrades /provender.deb >> "$place/apt.log" 2>&1
    echo "installed: $(in_root dpkg-query -W -f '${Package} ${Version}, ${Installed-Size} KiB' provender)"
}

as_eater() { in_root setpriv --reuid=eater --regid=eater --init-groups env HOME=/home/eater "$@"; }

running() { kill -0 "$program" 2> /dev/null; }
ended() { ! running; }

# log_food <name of the pictures> <food>: starts the program, adds the food, quits.
foods=()
log_food() {
    as_eater DISPLAY="$DISPLAY" provender > "$place/program.log" 2>&1 &
    program=$!
    soon windows_are 1 || fail 'no window appeared'
    focus
    picture "$1-1-started"
    xdotool key ctrl+n
    soon windows_are 2 || fail 'the list of foods did not open'
    focus
    picture "$1-2-list"
    xdotool type "${2,,}"
    picture "$1-3-typed"
    xdotool key Return
    soon windows_are 1 || fail 'the list of foods did not close'
    focus
    picture "$1-4-added"
    echo "a food was added: $place/$1-4-added.png"
    xdotool key ctrl+q
    soon ended || fail 'the program did not end'
    program=
    grep -a -q "$2" "$root$store" || fail "$2 is not in the store"
    foods+=("$2")
}

# look_into_log <name of the export>: what was added by either version is in the log, each food once.
look_into_log() {
    as_eater provender-export > "$place/$1.csv" || fail 'the log could not be exported'
    for food in "${foods[@]}"; do
        grep -q "\"$food\",100,g,100,[0-9]" "$place/$1.csv" || fail "$food is not in $place/$1.csv"
    done
    (($(wc -l < "$place/$1.csv") == ${#foods[@]} + 1)) || fail "there are other foods in $place/$1.csv"
    echo "in the log: $(printf '%s; ' "${foods[@]}")"
}

server=
program=
end_all() {
    [[ -z $program ]] || kill "$program" 2> /dev/null || true
    [[ -z $server ]] || kill "$server"
}
trap end_all EXIT
begin_display 1280x800 "$place/display.log"
mkdir -p "$place/runtime"
chmod 0700 "$place/runtime"
export QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR=$place/runtime

"${apt[@]}" update > "$place/apt.log" 2>&1
in_root useradd --create-home eater
if [[ -n $former ]]; then
    put_in "$former"
    log_food former 'Bananas, raw'
fi
put_in "$package"
log_food package 'Apricots, raw'
look_into_log package
if [[ -n $former ]]; then
    put_in "$former"
    log_food former-again 'Carrots, raw'
    put_in "$package"
    look_into_log package-again
fi

before=$(sha256sum < "$root$store")
"${apt[@]}" purge provender >> "$place/apt.log" 2>&1
[[ ! -e $root/usr/bin/provender && ! -e $root/usr/share/provender ]] || fail 'the package left something behind'
[[ $(sha256sum < "$root$store") == "$before" ]] || fail "the user's store was touched"
echo "removed, and the user's store is as it was"
rm -rf --one-file-system "$root"
