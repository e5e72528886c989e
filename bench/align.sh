#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ZPanoHead authors
# SPDX-License-Identifier: GPL-3.0-or-later

# Measures panohost align and prints rows of a table: CPU seconds of all processes, and degrees (rms)
# from the truth of made-up shootings with one turn of the whole free.
#
#   bench/align.sh [--plain] [--sets "38 114"] [--seeds "1 2 3"] [--robust] [--large] [--adjust]
#
# --plain    also the usual way without the head's file, by the Hugin tools: a quarter of an hour and
#            more for 114 pictures
# --robust   shootings that make it hard
# --large    24 megapixels against decoding alone; how 250, 500 and 1,000 pictures grow
# --adjust   the adjustment of up to 70,000 simulated pictures
# Shootings are kept in the folder BENCH_SHOOTINGS, /tmp/align-shootings if that is not set.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
export LC_ALL=C.UTF-8 TZ=UTC QT_QPA_PLATFORM=offscreen
shootings=${BENCH_SHOOTINGS:-/tmp/align-shootings}
sets="38 114" seeds="1 2 3" plain="" robust="" large="" adjust=""
while [ $# -gt 0 ]; do
    case $1 in
    --plain) plain=1 ;;
    --robust) robust=1 ;;
    --large) large=1 ;;
    --adjust) adjust=1 ;;
    --sets) sets=$2 && shift ;;
    --seeds) seeds=$2 && shift ;;
    *) echo "align.sh: there is no $1" >&2 && exit 2 ;;
    esac
    shift
done

{
    cmake --preset release
    cmake --build --preset release -j"$(nproc)" \
        --target panohost makeshooting align_error align_decode align_adjustment
} >&2
bin=$PWD/build/release/bin tools=$PWD/build/release/bench
mkdir -p "$shootings"
errors="--head-error 0.3 --focal-error 1 --distortion -0.01"

# make NAME ARGUMENTS...: renders a shooting unless it is there.
make() {
    local folder=$shootings/$1
    shift
    [ -e "$folder/truth.json" ] || "$bin"/makeshooting --output "$folder" --force "$@" >&2
}

# seconds COMMAND...: user and system time of all its processes; what it prints goes to the log.
seconds() {
    local TIMEFORMAT='%U %S'
    { time "$@" >>"$shootings/log" 2>&1; } 2>&1 | awk '{ printf "%.2f", $1 + $2 }'
}

# ours FOLDER HEAD...: aligns, and prints seconds, joined pictures of all, rms and worst error.
ours() {
    local folder=$1 report joined
    shift
    local config=()
    [ ! -e "$folder/shooting.xml" ] || config=(--config "$folder/shooting.xml")
    report=$folder/report.json
    align() {
        "$bin"/panohost align "$@" --json --force --output "$folder/ours.pto" >"$report"
    }
    local cpu
    cpu=$(seconds align "$@" "${config[@]}" "$folder")
    joined=$(sed -n 's/^    "joined": \([0-9]*\),*$/\1/p; s/^    "pictures": \([0-9]*\),*$/of \1/p' "$report" | tr '\n' ' ')
    echo "$cpu | ${joined% } | $("$tools"/align_error "$folder" "$folder/ours.pto" | awk '{ printf "%.4f | %.3f", $1, $2 }')"
}

# peak FOLDER HEAD...: the most memory that aligning takes, in MB.
peak() {
    local folder=$1 most=0 now pid
    shift
    "$bin"/panohost align "$@" --config "$folder/shooting.xml" "$folder" --force \
        --output "$folder/ours.pto" >>"$shootings/log" 2>&1 &
    pid=$!
    while now=$(awk '/VmHWM/ { print $2 }' "/proc/$pid/status" 2>/dev/null) && [ -n "$now" ]; do
        most=$now
        sleep 0.05
    done
    wait "$pid"
    echo $((most / 1024))
}

# without FOLDER: the same without the head's file.
without() {
    local folder=$1
    plainly() {
        cd "$folder"
        pto_gen -o plain0.pto IMG_*.jpg
        cpfind --multirow -o plain1.pto plain0.pto
        cpclean -o plain2.pto plain1.pto
        autooptimiser -a -l -s -o plain.pto plain2.pto
    }
    local cpu
    cpu=$(seconds plainly)
    echo "$cpu | - | $("$tools"/align_error "$folder" "$folder/plain.pto" | awk '{ printf "%.4f | %.3f", $1, $2 }')"
}

echo "| shooting | way | CPU seconds | joined | degrees rms | worst |"
echo "|---|---|---|---|---|---|"
for set in $sets; do
    [ "$set" = 38 ] && view="--focal 20.3 --overlap 42" || view="--focal 50 --overlap 35"
    for seed in $seeds; do
        name=$set-$seed
        # shellcheck disable=SC2086
        make "$name" --sphere $view $errors --seed "$seed"
        echo "| $set pictures, seed $seed | aligned | $(ours "$shootings/$name" papywizard) |"
        [ -z "$plain" ] ||
            echo "| $set pictures, seed $seed | without the head's file | $(without "$shootings/$name") |"
    done
done

if [ -n "$robust" ]; then
    sphere="--sphere --focal 20.3 --overlap 42"
    row="--rows 2 --columns 8 --full-turn --focal 20"
    # name, what is rendered, what is imported
    while IFS=';' read -r name shooting import; do
        folder=${name//[^a-z0-9]/-}
        # shellcheck disable=SC2086
        make "$folder" $shooting
        # shellcheck disable=SC2086
        echo "| $name | aligned | $(ours "$shootings/$folder" $import) |"
    done <<END
the same houses again and again;$sphere $errors --repeat;papywizard
half of it sky, portrait by tag;$sphere $errors --sky 25 --portrait tag;papywizard
blurred and noisy sky;$sphere $errors --blurred-sky --noise 3;papywizard
portrait by pixels;--sphere --focal 24 --overlap 40 $errors --portrait pixels;papywizard
brackets of 2 ev, all levels;$row $errors --brackets 3;papywizard --levels all
brackets of 4 ev, all levels;$row $errors --brackets 3 --bracket-step 4;papywizard --levels all
head counts from elsewhere;$sphere $errors --head-offset 4,3;papywizard
focal length 5 % off;$sphere --head-error 0.3 --focal-error 5 --distortion -0.03;papywizard
head 3 degrees off, wide;$sphere --head-error 3 --focal-error 1;papywizard
head 1 degree off, 10 degrees wide;--rows 3 --columns 6 --focal 200 --overlap 40 --head-error 1 --focal-error 1 --head-step 0.01;papywizard
head 2 degrees off, 20 degrees wide;--rows 3 --columns 6 --focal 100 --overlap 40 --head-error 2 --focal-error 1 --head-step 0.01;papywizard
head 0.3 degrees off, 10 degrees wide;--rows 6 --columns 10 --focal 200 --overlap 35 $errors --head-step 0.01;papywizard
head 3 degrees off, narrow;--rows 3 --columns 8 --focal 50 --overlap 40 --head-error 3 --focal-error 1;papywizard
fisheye;--lens fisheye --focal 15 --sphere --overlap 40 $errors;papywizard
fisheye, 5 pictures;--lens fisheye --focal 8 --sphere --overlap 30 $errors;papywizard
grid, 30 % stated where it is 20;--format gigapan --rows 3 --columns 6 --focal 50 --overlap 20 $errors;gigapan --rows 3 --overlap 30 --clean-links
grid, 30 % stated where it is 40;--format gigapan --rows 3 --columns 6 --focal 50 --overlap 40 $errors;gigapan --rows 3 --overlap 30 --clean-links
grid, 30 % stated where it is 60;--format gigapan --rows 3 --columns 6 --focal 50 --overlap 60 $errors;gigapan --rows 3 --overlap 30 --clean-links
END
fi

if [ -n "$large" ]; then
    # shellcheck disable=SC2086
    make 24mp --rows 2 --columns 8 --full-turn --focal 20 --size 6000x4000 $errors
    echo "| 16 pictures of 24 megapixels | aligned | $(ours "$shootings/24mp" papywizard) |"
    echo "| the same | decoding alone | $(seconds "$tools"/align_decode "$shootings"/24mp/IMG_*.jpg) | | | |"
    for columns in 10 20 40; do
        pictures=$((25 * columns))
        # shellcheck disable=SC2086
        make $pictures --rows 25 --columns $columns --focal 200 --overlap 35 $errors --head-step 0.01
        echo "| $pictures pictures | aligned | $(ours "$shootings/$pictures" papywizard) |"
        echo "| the same | MB at most | $(peak "$shootings/$pictures" papywizard) | | | |"
    done
fi

if [ -n "$adjust" ]; then
    echo
    echo "| simulated pictures | points | CPU seconds | MB | pixels rms |"
    echo "|---|---|---|---|---|"
    for pictures in 2800 10000 70000; do
        "$tools"/align_adjustment $pictures | awk '{ printf "| %s | %s | %.1f | %s | %.2f |\n", $1, $2, $3, $4, $5 }'
    done
fi
