#!/usr/bin/env bash
# Builds the project and runs the whole test suite. The preset is "default" unless given:
#   scripts/test.sh          RelWithDebInfo
#   scripts/test.sh asan     AddressSanitizer + UndefinedBehaviorSanitizer
set -euo pipefail
cd "$(dirname "$0")/.."
preset="${1:-default}"
scripts/deps.sh
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset"
# A locale whose decimal point is a comma, compiled into the build folder (no system change), so the
# test that formatted numbers keep their "." runs everywhere instead of being skipped. That test alone
# puts the folder into LOCPATH.
locales="build/locales"
if [ ! -d "$locales/de_DE.UTF-8" ]; then
  mkdir -p "$locales"
  localedef -i de_DE -f UTF-8 "$locales/de_DE.UTF-8" || echo "note: no de_DE locale could be made; one test will be skipped"
fi
export QK_TEST_LOCALES="$PWD/$locales"
# The database tests also run on PostgreSQL: on the server QK_PG_URI names, or else on a throw-away one
# started here for this run. Without a server they are skipped, unless QK_PG_REQUIRED is set (CI).
if [ -z "${QK_PG_URI:-}" ]; then
  pgdir=$(mktemp -d /tmp/qk-pg.XXXXXX)
  chmod 755 "$pgdir"
  trap 'scripts/pg-server.sh stop "$pgdir" || true; rm -rf "$pgdir"' EXIT
  if uri=$(scripts/pg-server.sh start "$pgdir" $((20000 + RANDOM % 20000))); then
    export QK_PG_URI="$uri"
  else
    echo "note: no PostgreSQL server could be started; its tests are skipped unless QK_PG_REQUIRED is set"
  fi
fi
ctest --preset "$preset" -j "$(nproc)"
