#!/usr/bin/env bash
# Installs what is needed, builds once, starts a PostgreSQL server on
# loopback, runs every test in parallel, and stops the server.
#   SANITIZE=1 scripts/pruebas.sh   the same under AddressSanitizer and UBSan
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

build=build
extra=()
if [ "${SANITIZE:-0}" = 1 ]; then
  build=build-san
  extra+=(-DCONSULTAS_SANITIZE=ON)
  export ASAN_OPTIONS=detect_leaks=0:abort_on_error=1
  export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
fi
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "${extra[@]}" >/dev/null
ninja -C "$build"

pgdir=$(mktemp -d /tmp/consultas-pg-XXXXXX)
puerto=$(( 56000 + RANDOM % 2000 ))
trap 'bash scripts/pg.sh stop "$pgdir"; rm -rf "$pgdir"' EXIT
export CONSULTAS_PG_ADMIN=$(bash scripts/pg.sh start "$pgdir" "$puerto")
export CONSULTAS_PG_PUERTO=$puerto

ctest --test-dir "$build" -j "$(nproc)" --output-on-failure --timeout 600
