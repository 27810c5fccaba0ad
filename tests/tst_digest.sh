#!/bin/sh
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# tst_digest.sh <program>...: runs the digest programs and compares what they print.
set -eu

if [ "$#" -lt 3 ]; then
    echo "No clang++ was found when this was configured, so there is nothing to compare g++ with."
    exit 77
fi
first=
for program in "$@"; do
    digest=$("$program")
    echo "$digest  ${program##*/}"
    case $digest in
        ????????????????) ;;
        *) echo "this is no digest"; exit 1 ;;
    esac
    if [ "${first:=$digest}" != "$digest" ]; then
        echo "the digests differ"
        exit 1
    fi
done
