#!/usr/bin/env bash
# A throwaway PostgreSQL server on loopback for the tests and benchmarks.
#   scripts/pg.sh start DIR PORT   prints the admin keyword string
#   scripts/pg.sh stop DIR
set -euo pipefail
accion=$1; dir=$2; puerto=${3:-55432}
bin=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -1)

como_postgres() {
  if [ "$(id -u)" -eq 0 ]; then runuser -u postgres -- "$@"; else "$@"; fi
}

case $accion in
  start)
    mkdir -p "$dir"
    [ "$(id -u)" -eq 0 ] && chown postgres: "$dir"
    if [ ! -f "$dir/PG_VERSION" ]; then
      como_postgres "$bin/initdb" -D "$dir" -U postgres -A trust -E UTF8 --locale=C.UTF-8 >/dev/null
    fi
    como_postgres "$bin/pg_ctl" -D "$dir" -l "$dir/servidor.log" -w -t 60 \
      -o "-c listen_addresses=127.0.0.1 -p $puerto -k $dir -c fsync=off -c synchronous_commit=off -c full_page_writes=off -c max_connections=200" \
      start >/dev/null
    echo "host=127.0.0.1 port=$puerto user=postgres"
    ;;
  stop)
    [ -f "$dir/postmaster.pid" ] && como_postgres "$bin/pg_ctl" -D "$dir" -m fast -w stop >/dev/null || true
    ;;
  *) echo "uso: pg.sh start|stop DIR [PUERTO]" >&2; exit 2 ;;
esac
