#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ZPanoHead authors
# SPDX-License-Identifier: GPL-3.0-or-later

# Usage: docs/screenshots.sh [FOLDER]
# Makes the documentation's pictures from the built programs, without a display, into FOLDER
# (docs/screenshots): each step of an import in the window, every tab of every page, and a stitched
# panorama. QT_SCALE_FACTOR=2 doubles them.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/packages.sh
folder=${1:-docs/screenshots}

ensure_packages build demo
cmake --preset release >/dev/null
cmake --build --preset release --parallel "$(nproc)" \
    --target screenshots panohost makeshooting ZPanoHead translations
bin=$PWD/build/release/bin

work=$(mktemp --directory --tmpdir panorama.XXXX)
trap 'rm -rf "$work"' EXIT
# Neither the settings nor the language of whoever calls this may show.
export QT_QPA_PLATFORM=offscreen XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work LC_ALL=C.UTF-8 LANGUAGE=
mkdir -p "$folder"

grid=(--rows 3 --columns 12 --full-turn --pitch-range "-54,54" --focal 24 --portrait tag)
"$bin/makeshooting" --format papywizard "${grid[@]}" --output "$work/papywizard"
"$bin/makeshooting" --format clauss "${grid[@]}" --output "$work/clauss"
"$bin/makeshooting" --format gigapan "${grid[@]}" --output "$work/gigapan"
"$bin/makeshooting" --format vrdrive2 --rows 1 --columns 8 --full-turn --brackets 3 --focal 24 \
    --output "$work/vrdrive2"
"$bin/screenshots" "$folder" "$work"

"$bin/panohost" stitch papywizard --config "$work/papywizard/shooting.xml" --width 1200 \
    --output "$work/pano.jpg" "$work/papywizard"
mv "$work/pano.jpg" "$folder/pano.jpg"
