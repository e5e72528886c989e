#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ZPanoHead authors
# SPDX-License-Identifier: GPL-3.0-or-later

# Installs what is missing, builds and tests. Needs neither terminal nor display.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/packages.sh

usage() {
    cat <<'TEXT'
Usage: ./test.sh [MODE]
  dev    all tests, warnings are errors (default)
  qt6    the same with Qt 6 instead of Qt 5
  asan   all tests under the address and undefined behaviour sanitizers
  tsan   the background reader's tests under the thread sanitizer
  tidy   no tests: clang-format and clang-tidy over the whole tree
TEXT
}

build() {
    cmake --preset "$1"
    cmake --build --preset "$1" --parallel "$(nproc)"
}

mode=${1:-dev}
[ $# -le 1 ] || { usage >&2; exit 2; }
case $mode in
    -h | --help) usage; exit 0 ;;
    dev | asan) ensure_packages build test ;;
    qt6) ensure_packages build test qt6 ;;
    tsan) ensure_packages build test tsan ;;
    tidy) ensure_packages build test tidy ;;
    *) usage >&2; exit 2 ;;
esac

if [ "$mode" = tidy ]; then
    build dev # the checks read generated headers
    find . -path ./build -prune -o \( -name '*.cpp' -o -name '*.h' \) -print0 |
        xargs -0 clang-format --dry-run --Werror
    run-clang-tidy -quiet -p build/dev -j "$(nproc)" "^$PWD/(?!build/)"
    say "clang-format and clang-tidy have nothing to say."
    exit 0
fi

build "$mode"
ctest --preset "$mode" --parallel "$(nproc)"
