#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ZPanoHead authors
# SPDX-License-Identifier: GPL-3.0-or-later

# A whole import, from the head's file to a finished panorama, with made pictures.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/packages.sh

usage() {
    cat <<'TEXT'
Usage: ./demo.sh [--gui]
  Builds panohost, makes a shooting of 3 rows of 12 pictures, imports it and makes the
  panorama, which a web folder shows.
  Everything comes to lie in demo/, which is made anew each time.
  --gui  opens panohost's window afterwards
TEXT
}

gui=no
case ${1:-} in
    '') ;;
    --gui) gui=yes ;;
    -h | --help) usage; exit 0 ;;
    *) usage >&2; exit 2 ;;
esac
[ $# -le 1 ] || { usage >&2; exit 2; }

# step LOG COMMAND... runs a command and shows what it said only when it failed.
step() {
    local log=$1
    shift
    "$@" >"$log" 2>&1 </dev/null || {
        cat "$log" >&2
        fail "This went wrong: $*
    (its output, shown above, is kept in $PWD/$log)"
    }
}

ensure_packages build demo

say "Building; the first time takes a few minutes ..."
mkdir -p build
step build/demo.log cmake --preset release
step build/demo.log cmake --build --preset release --parallel "$(nproc)" \
    --target panohost makeshooting ZPanoHead translations
bin=build/release/bin

rm -rf demo
mkdir demo
say "Taking 36 pictures of a made scene, as a motorised head would ..."
step demo/log.txt "$bin/makeshooting" --format papywizard --output demo/shooting \
    --rows 3 --columns 12 --full-turn --pitch-range -54,54 --focal 24 --portrait tag \
    --head-error 0.3 --focal-error 1 --distortion -0.01

say "Importing them ..."
step demo/log.txt "$bin/panohost" import papywizard --config demo/shooting/shooting.xml \
    --output demo/pano.pto --record demo/record.json demo/shooting
# Without control points checkpto calls every picture a loose part, so its exit code says nothing.
checkpto demo/pano.pto >demo/log.txt 2>&1 || true
grep -q '^36 images' demo/log.txt || fail "checkpto does not accept demo/pano.pto"

say "Making the panorama of them: aligned, evened out, blended ..."
web=(--web demo/web)
[ -e build/release/share/panohost/viewer/COPYING ] || {
    web=()
    say "(no web folder: its viewer could not be fetched when panohost was built)"
}
step demo/log.txt "$bin/panohost" stitch papywizard --config demo/shooting/shooting.xml \
    --output demo/pano.jpg --report demo/report.txt "${web[@]}" demo/shooting
rm demo/log.txt
[ -s demo/pano.jpg ] || fail "panohost wrote no picture"

say
cat demo/report.txt
cat <<TEXT

A shooting of 36 pictures went from the head's file to a panorama:
  demo/shooting/      the pictures and the head's file
  demo/record.json    the record that the plug-in hands to its host
  demo/pano.pto       the project as the head's file has it (opens in Hugin)
  demo/pano.jpg       the finished panorama
  demo/report.txt     what aligning it found, as above
TEXT
[ ${#web[@]} -eq 0 ] || say "  demo/web/index.html the panorama to turn and zoom, in any browser"
[ $gui = no ] || exec "$bin/panohost"
