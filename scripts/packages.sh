# SPDX-FileCopyrightText: 2026 The ZPanoHead authors
# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash

# Sourced by the scripts of the top folder. What the project needs of Debian 12 is listed here, once.

declare -A package_groups=(
    [build]="cmake ninja-build g++ qtbase5-dev qttools5-dev qttools5-dev-tools libexiv2-dev libopencv-dev libceres-dev libturbojpeg0-dev libopenexr-dev libqt5svg5-dev librsvg2-bin"
    [test]="hugin-tools enblend enfuse chromium chromium-driver fonts-dejavu-core qttranslations5-l10n"
    [demo]="hugin-tools enblend enfuse fonts-dejavu-core"
    [qt6]="qt6-base-dev qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools qt6-svg-dev qt6-translations-l10n"
    [tsan]="clang libclang-rt-dev"
    [tidy]="clang clang-tidy clang-format"
)

say() { printf '%s\n' "$*"; }
fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

trap 'fail "Interrupted. Start again to go on."' INT TERM

is_installed() {
    [ "$(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# ensure_packages GROUP... installs what is missing of the groups; where nothing is, it runs nothing.
ensure_packages() {
    local group members package wanted=() missing=() as_root=()
    for group in "$@"; do
        read -ra members <<<"${package_groups[$group]}"
        wanted+=("${members[@]}")
    done
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        say "This is no Debian system: going on with what is there. On Debian 12 it would be: ${wanted[*]}"
        return
    fi
    for package in "${wanted[@]}"; do
        is_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null ||
            fail "Packages are missing, and there is no sudo to install them with. As root:
    apt-get update && apt-get install ${missing[*]}"
        as_root=(sudo)
        # Without a terminal nobody can answer sudo's question.
        [ -t 0 ] || as_root+=(--non-interactive)
    fi
    say "Installing ${missing[*]}"
    as_root+=(env DEBIAN_FRONTEND=noninteractive)
    if ! "${as_root[@]}" apt-get update --quiet=2 ||
        ! "${as_root[@]}" apt-get install --yes --quiet=2 --no-install-recommends "${missing[@]}" </dev/null; then
        fail "The packages could not be installed. Start again, or install them by hand as root:
    dpkg --configure -a; apt-get update && apt-get install ${missing[*]}"
    fi
}
