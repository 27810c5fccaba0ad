#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# tst_package.sh <project> <build folder>: makes the Debian package of that build, leaves it as
# <build folder>/package/provender.deb, and looks at what is in it.
set -euo pipefail

project=$1
build=$2
failures=0

fail() {
    echo "FAIL: $1"
    failures=$((failures + 1))
}

rm -rf "$build/package"
cpack --config "$build/CPackConfig.cmake" -B "$build/package"
package=$build/package/provender.deb
mv "$build"/package/provender_*.deb "$package"
root=$build/package/root
mkdir "$root"
dpkg-deb --fsys-tarfile "$package" | tar -x -C "$root" --exclude='./usr/share/provender/Database.xml/*'

# Nothing is missing from the food files, nothing is added to them, and they are the same.
dpkg-deb --ctrl-tarfile "$package" | tar -x -O ./md5sums | grep ' usr/share/provender/' |
    sed 's, usr/share/provender/, ,' | LC_ALL=C sort -k 2 > "$build/package/packaged"
(cd "$project/resources" && find Database.xml -type f -exec md5sum {} +) |
    LC_ALL=C sort -k 2 > "$build/package/wanted"
cmp "$build/package/packaged" "$build/package/wanted" || fail 'the food files are not those of the source tree'
(($(wc -l < "$build/package/packaged") > 7000)) || fail 'there are no food files'

for file in usr/bin/provender usr/bin/provender-export usr/share/applications/org.provender.Provender.desktop \
    usr/share/metainfo/org.provender.Provender.metainfo.xml usr/share/man/man1/provender.1.gz \
    usr/share/man/man1/provender-export.1.gz \
    usr/share/doc/provender/copyright usr/share/doc/provender/changelog.gz usr/share/doc/provender/NEWS.gz \
    usr/share/icons/hicolor/scalable/apps/org.provender.Provender.svg; do
    [[ -f $root/$file ]] || fail "$file is not in the package"
done
for size in 16 24 32 48 64 128 256 512; do
    icon=$root/usr/share/icons/hicolor/${size}x$size/apps/org.provender.Provender.png
    # Width and height are the third and fourth words of a PNG file, high byte first.
    [[ $(od -A n -t x1 -j 16 -N 8 "$icon" | tr -d ' \n') == "$(printf '%08x%08x' "$size" "$size")" ]] ||
        fail "the icon of $size pixels is not that large"
done

# One version, wherever it is written.
version=$(dpkg-deb -f "$package" Version)
[[ $(zcat "$root/usr/share/doc/provender/changelog.gz" | head -n 1) == "provender ($version) "* ]] ||
    fail "the change log does not begin with version $version"
grep -q "<release version=\"$version\"" "$root/usr/share/metainfo/org.provender.Provender.metainfo.xml" ||
    fail "the metainfo file lacks version $version"
[[ $(zgrep -m 1 '^## ' "$root/usr/share/doc/provender/NEWS.gz") == "## $version,"* ]] ||
    fail "the release notes do not begin with version $version"
for page in provender provender-export; do
    [[ $(zcat "$root/usr/share/man/man1/$page.1.gz") == *"\"Provender $version\""* ]] ||
        fail "the manual page of $page is not of version $version"
done

# The second program needs no widgets, and finds the food files from where it is.
linked=$(objdump -p "$root/usr/bin/provender-export" | grep NEEDED)
[[ $linked == *Qt6Core* && $linked != *Gui* && $linked != *Widgets* ]] ||
    fail "provender-export is linked with: $linked"

# What the program is linked with; nothing that only building needs.
depends=$(dpkg-deb -f "$package" Depends)
for name in libc6 libexpat1 libqt6core6 libqt6gui6 libqt6widgets6 libsqlite3-0 libstdc++6; do
    [[ ", $depends," == *", $name"[\ ,]* ]] || fail "the package does not depend on $name: $depends"
done
[[ $depends != *-dev* ]] || fail "the package depends on what only building needs: $depends"

# No script runs at installation or removal, so removing the package cannot touch anybody's log.
scripts=$(dpkg-deb --ctrl-tarfile "$package" | tar -t)
[[ $scripts != *inst* && $scripts != *rm* ]] || fail "the package has scripts: $scripts"

exit $((failures > 0))
