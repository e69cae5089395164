#!/usr/bin/env bash
# The main job: installs what is needed, builds, makes the demo suite and runs
# an inquiry on it to PDF.
#   scripts/principal.sh [DIR]   the suite goes to DIR (default ./suite-demo)
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
ninja -C build
suite=${1:-suite-demo}
cadena=$(./build/app/consultas demo "$suite" --reemplazar | tail -1)
./build/app/consultas ejecutar --conexion "$cadena" --ruta "$suite" --pantalla presupuestos \
  cmbConsulta=0 --pdf "$suite/reporte.pdf" --jsonl "$suite/reporte.jsonl"
echo "Reporte: $suite/reporte.pdf"
