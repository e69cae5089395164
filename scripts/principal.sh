#!/usr/bin/env bash
# The main job: installs what is needed, builds, makes the demo suite and runs
# the purchase journal (Diario de Compras, receipts of 2026) on it to PDF and
# to a spreadsheet.
#   scripts/principal.sh [DIR]   the suite goes to DIR (default ./suite-demo)
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
ninja -C build
suite=${1:-suite-demo}
cadena=$(./build/app/consultas demo "$suite" --reemplazar | tail -1)
./build/app/consultas ejecutar --conexion "$cadena" --ruta "$suite" --pantalla compras \
  cmbConsulta=0 optDoc=3 optDetRes=1 cmbTipDoc= chkExcel=1 \
  dtpFecha[0]=2026-01-01 dtpFecha[1]=2026-11-30 \
  --pdf "$suite/reporte.pdf" --jsonl "$suite/reporte.jsonl" --xlsx "$suite"
echo "Reporte: $suite/reporte.pdf"
ls "$suite"/DiarioCompras_*.xlsx
