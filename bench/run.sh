#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ZPanoHead authors
# SPDX-License-Identifier: GPL-3.0-or-later

# Builds all benchmarks and prints their figures as one table. Exits with 1 when a bar was missed.
# Wants a machine that does nothing else: two cores and 8 GB serve.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
export LC_ALL=C.UTF-8 TZ=UTC QT_QPA_PLATFORM=offscreen

programs=(bench_links bench_clauss_script bench_shooting_file bench_reader bench_preview bench_imports)
{
    cmake --preset release
    cmake --build --preset release -j"$(nproc)" --target "${programs[@]}"
} >&2

missed=0
echo "| measure | figure | bar | met or missed |"
echo "|---|---|---|---|"
for program in "${programs[@]}"; do
    build/release/bench/"$program" || missed=1
done
exit "$missed"
