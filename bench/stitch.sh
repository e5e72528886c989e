#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ZPanoHead authors
# SPDX-License-Identifier: GPL-3.0-or-later

# What an aligned panorama loses against the same pictures at their true positions: both are
# stitched alike and compared with the scene they were taken of.
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

# run NAME ARGUMENTS... stitches to NAME.jpg and prints a row.
run() {
    local name=$1 decibels
    shift
    local TIMEFORMAT='%R %U %S'
    { time panohost stitch "$@" --width $width --output "$name.jpg" >/dev/null 2>log.txt; } 2>time.txt ||
        { cat log.txt >&2; exit 1; }
    read -r real user system <time.txt
    read -r decibels turned turn <<<"$(likeness "$name.jpg" scene.png)"
    printf '| %s | %s | %s | %s | %s | %s |\n' "$name" "$decibels" "$turned" "$turn" "$real" \
        "$(awk "BEGIN { print $user + $system }")"
}

pictures=(shooting/*.jpg)
echo "${#pictures[@]} pictures, full sphere, $width pixels across"
echo
echo "| positions | dB | dB, turned as a whole to fit best | degrees turned | seconds | of computing |"
echo "|---|---|---|---|---|---|"
run true --project shooting/truth.pto
run aligned papywizard --config shooting/shooting.xml shooting
run recorded papywizard --config shooting/shooting.xml --skip-optimization --no-detect shooting
