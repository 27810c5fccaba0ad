#!/bin/bash
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# Renders the PNG icons from their drawings, after one of these was changed. What it writes is committed, so that
# nobody needs rsvg-convert (tools/set-up.sh icons) to build.
set -euo pipefail
cd "$(dirname "$0")/../resources/icons"

rsvg-convert -w 16 -h 16 small.svg -o 16.png
for size in 24 32 48 64 128 256 512; do
    rsvg-convert -w "$size" -h "$size" org.provender.Provender.svg -o "$size.png"
done
