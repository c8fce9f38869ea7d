#!/usr/bin/env bash
# Builds the project and runs the whole test suite. The preset is "default" unless given:
#   scripts/test.sh            RelWithDebInfo, each test in a process of its own (CTest)
#   scripts/test.sh asan       AddressSanitizer + UndefinedBehaviorSanitizer, likewise
#   scripts/test.sh memcheck   the default build's suite in one process under valgrind memcheck
set -euo pipefail
cd "$(dirname "$0")/.."
mode="${1:-default}"
preset="$mode"
[ "$mode" = memcheck ] && preset=default
scripts/deps.sh test
# scripts/run.sh may have configured the same folder without the tests and benchmarks: turn them on.
options=(-DQK_BUILD_TESTS=ON)
[ "$preset" = default ] && options+=(-DQK_BUILD_BENCH=ON)
cmake --preset "$preset" "${options[@]}" >/dev/null
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
if [ "$mode" != memcheck ]; then
  ctest --preset "$preset" -j "$(nproc)"
  exit
fi
# Under valgrind a process takes seconds to start, so the suite runs in one process (about 6 min on two
# cores, against over an hour for one per test). Any invalid read or write, use of an uninitialised
# value or block lost for good (definitely or indirectly), in the suite or in a child it forks, fails
# the run. Blocks still reachable at exit are no leak, and "possibly lost" ones are not counted: a
# child that ends with _exit leaves SQLite's open page cache, which points into its blocks past their
# start, and valgrind cannot tell such pointers from stray ones. The AVX2 string functions of glibc
# read whole 32-byte words past the end of short strings, which valgrind 3.19 takes for invalid reads
# (KDE bug 397083): glibc is told to use its other versions, so no report needs suppressing.
# The qkdb processes that the tool tests start are not followed; the asan preset checks them.
logs="build/memcheck"
rm -rf "$logs"
mkdir -p "$logs"
if GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX2 valgrind --tool=memcheck --leak-check=full \
    --show-leak-kinds=definite,indirect --errors-for-leak-kinds=definite,indirect \
    --error-exitcode=99 --num-callers=30 --log-file="$logs/%p.log" \
    build/default/tests/qk_tests --gtest_brief=1; then
  echo "memcheck: no errors ($(ls "$logs" | wc -l) processes checked, logs in $logs/)"
else
  status=$?
  grep -l "ERROR SUMMARY: [1-9]" "$logs"/*.log | head -n 5 | xargs -r tail -n 60
  echo "memcheck: failed with status $status (99: valgrind found errors; logs in $logs/)"
  exit 1
fi
