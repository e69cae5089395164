#!/usr/bin/env bash
# Installs every Debian package the library, its tests and its benchmarks need.
# Safe to run again: apt-get skips what is already there.
set -euo pipefail

PAQUETES=(
  build-essential cmake ninja-build pkg-config git clang-format
  qt6-base-dev qt6-base-dev-tools libqt6sql6-sqlite libqt6sql6-psql libqt6sql6-odbc
  libqt6svg6 qt6-qpa-plugins
  libxlsxwriter-dev zlib1g-dev
  libgtest-dev libgmock-dev googletest libbenchmark-dev
  fonts-liberation2
  sqlite3 postgresql postgresql-client odbc-postgresql unixodbc unixodbc-dev
  poppler-utils unzip xvfb xauth time
)

faltan=()
for p in "${PAQUETES[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || faltan+=("$p")
done

if [ ${#faltan[@]} -gt 0 ]; then
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -qq
  $SUDO apt-get install -y -qq --no-install-recommends "${faltan[@]}"
fi
