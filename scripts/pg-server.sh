#!/usr/bin/env bash
# A throw-away PostgreSQL server for the tests: its own data folder, socket and log in DIR, listening
# on 127.0.0.1:PORT only, trusting local connections; no system service is touched.
#   scripts/pg-server.sh start DIR PORT   starts it and prints the URI of its maintenance database
#   scripts/pg-server.sh stop DIR         stops it (DIR is then the caller's to remove)
# The server refuses to run as root: as root it runs as the "postgres" user the package created.
set -euo pipefail
bin=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -n 1)
[ -n "$bin" ] || { echo "pg-server: PostgreSQL is not installed" >&2; exit 1; }
as=()
if [ "$(id -u)" -eq 0 ]; then as=(runuser -u postgres --); fi

case "${1:-}" in
  start)
    dir="$2" port="$3"
    mkdir -p "$dir"
    [ ${#as[@]} -eq 0 ] || chown postgres "$dir"
    "${as[@]}" "$bin/initdb" -D "$dir/data" -U qk --auth=trust -E UTF8 --locale=C.UTF-8 >"$dir/initdb.log" 2>&1 ||
      { cat "$dir/initdb.log" >&2; exit 1; }
    "${as[@]}" "$bin/pg_ctl" -D "$dir/data" -l "$dir/server.log" -w -t 30 \
      -o "-p $port -k $dir -c listen_addresses=127.0.0.1 -c fsync=off" start >/dev/null ||
      { cat "$dir/server.log" >&2; exit 1; }
    echo "postgresql://qk@127.0.0.1:$port/postgres"
    ;;
  stop)
    "${as[@]}" "$bin/pg_ctl" -D "$2/data" -m fast -w stop >/dev/null
    ;;
  *)
    echo "usage: $0 start DIR PORT | stop DIR" >&2
    exit 2
    ;;
esac
