#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ZPanoHead authors
# SPDX-License-Identifier: GPL-3.0-or-later

# What an aligned panorama loses against the same pictures at their true positions: both are
# stitched alike and compared with the scene they were taken of. No picture tells how the whole stood:
# there the alignment can but believe the head, whose errors have a mean.
# Usage: bench/stitch.sh [BUILD_FOLDER]

set -euo pipefail
build=$(cd "${1:-$(dirname "${BASH_SOURCE[0]}")/../build/release}" && pwd)
export PATH=$build/bin:$build/bench:$PATH
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
width=3142

makeshooting --sphere --overlap 45 --head-error 0.3 --focal-error 1 --distortion -0.01 \
    --output shooting >/dev/null
makeshooting --scene scene.png --scene-width $width >/dev/null
for command in import align; do
    panohost $command papywizard --config shooting/shooting.xml --output shooting/$command.pto \
        shooting >/dev/null 2>log.txt || { cat log.txt >&2; exit 1; }
done

# run NAME PROJECT stitches to NAME.jpg and prints a row.
run() {
    local TIMEFORMAT='%R %U %S'
    { time panohost stitch --project "shooting/$2.pto" --width $width --output "$1.jpg" >/dev/null 2>log.txt; } \
        2>time.txt || { cat log.txt >&2; exit 1; }
    read -r real user system <time.txt
    printf '| %s | %s | %.3f | %s | %s |\n' "$1" "$(likeness "$1.jpg" scene.png)" \
        "$(align_error shooting "shooting/$2.pto" | cut -d ' ' -f 5)" "$real" \
        "$(awk "BEGIN { print $user + $system }")"
}

pictures=(shooting/*.jpg)
echo "${#pictures[@]} pictures, full sphere, $width pixels across"
echo
echo "| positions | dB | degrees that the whole is turned | seconds | of computing |"
echo "|---|---|---|---|---|"
align_error shooting shooting/align.pto shooting/turned.pto >/dev/null
run true truth
run aligned align
run "aligned, turned back" turned
run recorded import
