#!/usr/bin/env bash
# Installs the Debian packages a set needs, only those that are missing, so a second run installs
# nothing. Runs apt-get update only when something has to be installed.
#   scripts/deps.sh          (or "build") what building the library, qkdb, the database and the Python
#                            package qkdb needs (Python's headers, pybind11; numpy for its arrays)
#   scripts/deps.sh test     that, and what the tests need: GoogleTest, Google Benchmark, the sqlite3
#                            shell (the baseline of the tool's start-up benchmark), a PostgreSQL
#                            server, a locale compiler, clang for the fuzz targets, valgrind, the
#                            Debian packaging tools the package test uses, and pytest, hypothesis and
#                            matplotlib for the Python package's tests and figures
set -euo pipefail

build=(g++ cmake ninja-build pkg-config libsqlite3-dev libpq-dev nlohmann-json3-dev libcli11-dev mdbtools-dev
  python3-dev pybind11-dev python3-numpy)
test=(libgtest-dev libgmock-dev libbenchmark-dev sqlite3 postgresql locales clang libclang-rt-14-dev valgrind dpkg-dev file
  python3-pytest python3-hypothesis python3-matplotlib)

case "${1:-build}" in
  build) packages=("${build[@]}") ;;
  test) packages=("${build[@]}" "${test[@]}") ;;
  *) echo "usage: scripts/deps.sh [build|test]" >&2; exit 2 ;;
esac

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
echo "installing: ${missing[*]}"
$sudo apt-get update
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y --no-install-recommends "${missing[@]}"
