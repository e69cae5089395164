#!/usr/bin/env bash
# Benchmarks: builds optimised and runs each one, printing its figures.
#   scripts/bench.sh            page run (5,000 pages), a large demo suite, and
#                               inquiries over it (Diario de Compras, Detallado, ...)
#   PAGINAS=1000 ESCALA=20 scripts/bench.sh   smaller runs
# ESCALA 200 (the default) gives about 1.09 million purchase lines; the journal
# runs over half of the demo period and over all of it, to show the first pass's
# memory does not follow the page count.
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

# An inquiry as the batch host runs it: bench_consulta SUITE --pantalla P SETTINGS...
consulta() { ./build-bench/bench/bench_consulta "$tmp/suite" "$@"; }
diario=(--pantalla compras cmbConsulta=0 optDoc=3 optDetRes=0)

echo "== Purchase journal, detailed receipts, half of the demo period"
consulta "${diario[@]}" 'dtpFecha[0]=2025-01-02' 'dtpFecha[1]=2025-12-15'
echo "== Purchase journal, detailed receipts, the whole demo period"
consulta "${diario[@]}" 'dtpFecha[0]=2025-01-02' 'dtpFecha[1]=2026-11-30'
