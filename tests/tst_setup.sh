#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# tst_setup.sh <project>: tools/set-up.sh in a project, and among commands, of this test's own: what it would install,
# and what it says where it cannot. Nothing is installed.
# The scripts given to the commands are expanded when those run:
# shellcheck disable=SC2016
set -uo pipefail

project=$1
scene=$(mktemp -d)
trap 'rm -rf "$scene"' EXIT
failures=0

# A fresh copy of the script with its list, and a folder of commands that holds next to nothing.
set_scene() {
    rm -rf "${scene:?}"/*
    mkdir -p "$scene/tools" "$scene/packaging" "$scene/bin"
    cp "$project/tools/set-up.sh" "$scene/tools/"
    printf '# a comment\n\nbuild  one\nbuild  two+\ntest   three\n' > "$scene/packaging/debian-packages.txt"
    for command in cat dirname env grep mkdir sed tail; do
        ln -s "$(command -v "$command")" "$scene/bin/$command"
    done
    # As on a machine that has only "two+" and the removed, not purged, "one".
    give dpkg-query 'echo "two+ installed"; echo "one config-files"; exit 1'
    give apt-get 'echo "apt-get $*" >> "$SCENE/calls"; echo "apt was here"'
    : > "$scene/calls"
    chmod -R a+rwX "$scene"
}

# give <command> <script>: that is what the command does in this scene.
give() {
    printf '#!/bin/bash\n%s\n' "$2" > "$scene/bin/$1"
    chmod a+rx "$scene/bin/$1"
}

set_up() {
    said=$(PATH=$scene/bin SCENE=$scene /bin/bash "$scene/tools/set-up.sh" "$@" 2>&1)
    code=$?
}

as_nobody() {
    if ((EUID == 0)); then
        said=$(PATH=$scene/bin SCENE=$scene /usr/bin/setpriv --reuid=65534 --regid=65534 --clear-groups \
            /bin/bash "$scene/tools/set-up.sh" "$@" 2>&1)
        code=$?
    else
        set_up "$@"
    fi
}

is() {
    if [[ $2 != "$3" ]]; then
        printf 'FAIL: %s\n  is:     %s\n  wanted: %s\n' "$1" "$2" "$3"
        failures=$((failures + 1))
    fi
}

holds() {
    [[ $2 == *"$3"* ]] || is "$1" "$2" "... $3 ..."
}

update='apt-get -q -o Dpkg::Use-Pty=0 update'
install='apt-get -q -o Dpkg::Use-Pty=0 install -y --no-install-recommends'

set_scene
give dpkg-query 'echo "one installed"; echo "two+ installed"; exit 0'
set_up build
is 'with everything there it succeeds' "$code" 0
is 'with everything there it says nothing' "$said" ''
is 'with everything there apt is not called' "$(cat "$scene/calls")" ''

if ((EUID == 0)); then
    set_scene
    set_up build
    is 'installing succeeds' "$code" 0
    is 'only what is missing of the group is installed' "$(cat "$scene/calls")" "$update"$'\n'"$install one"
    holds 'it says what it installs' "$said" 'Installing one'

    set_scene
    set_up build test
    is 'several groups are one call of apt' "$(tail -n 1 "$scene/calls")" "$install one three"

    set_scene
    give apt-get '[[ $* != *update ]] || exit 100'
    set_up build
    is 'an index that cannot be fetched is no failure' "$code" 0

    set_scene
    give apt-get 'echo "E: no network"; [[ $* == *update ]] || exit 100'
    set_up build
    is 'an installation that fails is a failure' "$code" 1
    holds 'it shows what apt said' "$said" 'E: no network'
    holds 'it names the packages' "$said" 'apt-get install --no-install-recommends one'
fi

set_scene
give sudo 'echo "sudo" >> "$SCENE/calls"; exec "$@"'
as_nobody build
is 'without root it installs through sudo' "$(cat "$scene/calls")" "sudo"$'\n'"$update"$'\n'"sudo"$'\n'"$install one"

set_scene
as_nobody build
is 'without root and sudo it fails' "$code" 1
holds 'and says what to install' "$said" 'apt-get install --no-install-recommends one'
is 'and does not call apt' "$(cat "$scene/calls")" ''

set_scene
rm "$scene/bin/apt-get"
set_up build test
is 'on another distribution it goes on' "$code" 0
holds 'and names all that is needed' "$said" 'one two+ three'

set_scene
set_up nothing
is 'a group that the list lacks is a mistake' "$code" 2

exit $((failures > 0))
