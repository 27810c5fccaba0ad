#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# set-up.sh <group>...: installs those packages of packaging/debian-packages.txt's groups that are missing.
# Installs nothing, asks nothing and needs neither root nor network when none is missing.
# Where there is no apt it says what is needed and succeeds: the build finds out whether it is there.
set -euo pipefail

project=$(cd "$(dirname "$0")/.." && pwd)
log=$project/build/set-up.log

wanted=()
while read -r group package; do
    for asked in "$@"; do
        [[ $group == "$asked" ]] && wanted+=("$package")
    done
done < <(grep -v -e '^#' -e '^$' "$project/packaging/debian-packages.txt")
if ((${#wanted[@]} == 0)); then
    echo "set-up.sh: no packages in the group(s) \"$*\" of packaging/debian-packages.txt" >&2
    exit 2
fi

if ! command -v apt-get > /dev/null || ! command -v dpkg-query > /dev/null; then
    echo "This is no Debian system. What these Debian 12 packages hold is needed, under whatever names:"
    echo "  ${wanted[*]}"
    echo "Going on, in case it is all there."
    exit 0
fi

# dpkg-query fails when a package is unknown; what it prints for the others counts all the same.
installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "${wanted[@]}" 2> /dev/null || true)
missing=()
for package in "${wanted[@]}"; do
    grep -q -x -F "$package installed" <<< "$installed" || missing+=("$package")
done
((${#missing[@]} == 0)) && exit 0

as_root=(env)
if ((EUID != 0)); then
    if ! command -v sudo > /dev/null; then
        echo "These packages are missing, and installing them takes root or sudo. Please have them installed:" >&2
        echo "  apt-get install --no-install-recommends ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo env)
fi

mkdir -p "$project/build"
echo "Installing ${missing[*]}"
echo "(this takes a minute or two; what apt says goes to build/set-up.log)"
apt=("${as_root[@]}" DEBIAN_FRONTEND=noninteractive apt-get -q -o Dpkg::Use-Pty=0)
# An index that cannot be fetched is no failure as long as the packages can still be had.
"${apt[@]}" update > "$log" 2>&1 || true
if ! "${apt[@]}" install -y --no-install-recommends "${missing[@]}" >> "$log" 2>&1; then
    echo "The packages could not be installed. apt's last words (all of them are in build/set-up.log):" >&2
    tail -n 8 "$log" | sed 's/^/  /' >&2
    echo "When the network is back, or by hand: apt-get install --no-install-recommends ${missing[*]}" >&2
    exit 1
fi
