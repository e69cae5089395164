#!/usr/bin/env bash
# Benchmarks: builds optimised and runs each one, printing its figures.
#   scripts/bench.sh            page run (5,000 pages) and a large demo suite
#   PAGINAS=1000 ESCALA=20 scripts/bench.sh   smaller runs
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake -S . -B build-bench -G Ninja -DCMAKE_BUILD_TYPE=Release -DCONSULTAS_TESTS=OFF >/dev/null
ninja -C build-bench
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT

echo "== Page run: ${PAGINAS:-5000} pages of 60 items"
./build-bench/bench/bench_paginas "${PAGINAS:-5000}" "$tmp"

echo "== Demo suite at scale ${ESCALA:-200}"
/usr/bin/time -f "demo: %e s, peak %M KB" \
  ./build-bench/app/consultas demo "$tmp/suite" --escala "${ESCALA:-200}" | tail -3
