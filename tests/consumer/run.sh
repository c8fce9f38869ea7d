#!/usr/bin/env bash
# The library as a host gets it: installs the build folder given into a scratch prefix, builds the
# example programs there twice (a CMake project with find_package, then plain g++ with pkg-config) and
# runs them on the installed reference database; runs the installed qkdb and Python package from the
# prefix, with the modules they load on demand (PostgreSQL, the Access reader); then makes the Debian
# packages, checks their file lists, unpacks them into a scratch root and runs qkdb there.
# Usage: tests/consumer/run.sh BUILD_DIR
set -euo pipefail
build=$(cd "$1" && pwd)
source=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d /tmp/qk-consumer.XXXXXX)
trap 'rm -rf "$work"' EXIT
fail() { echo "consumer test: $*" >&2; exit 1; }

prefix="$work/prefix"
cmake --install "$build" --prefix "$prefix" >/dev/null
db="$prefix/share/QKModelDataBase/reference.db"
[ -f "$db" ] || fail "no reference database installed at $db"
[ -f "$prefix/include/QKModelDataBase/geography/CQKCity.h" ] || fail "geography/CQKCity.h not installed"
[ -f "$prefix/include/QKModelDataBase/mfc/CString.h" ] || fail "mfc/CString.h not installed"
[ ! -e "$prefix/include/QKModelDataBase/foundation/QKRecordVerbs.h" ] || fail "an internal header was installed"

# Each example's output must hold the line given (grep -F), run on the installed database.
check() {
  local program=$1 expected=$2
  shift 2
  local out
  out=$("$program" "$@") || fail "$(basename "$program") $* failed"
  grep -qF -- "$expected" <<<"$out" || fail "$(basename "$program") $*: no \"$expected\" in: $out"
}
run_examples() {
  local bin=$1
  check "$bin/city_climate" "郑州" "$db" 郑州
  check "$bin/wall" "U: 1.956 W/(m²·K) in summer"
  check "$bin/type_walls" "Medium Exterior Wall" "$db" ASHRAE外墙
  check "$bin/room_use" "门诊楼 (医院建筑)" "$db"
}

# 1. CMake: find_package(QKModelDataBase 0.2 REQUIRED).
cmake -S "$source/tests/consumer" -B "$work/cmake" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$work/cmake" >/dev/null
run_examples "$work/cmake"
# A version the package does not satisfy is refused.
mkdir -p "$work/old"
printf 'cmake_minimum_required(VERSION 3.25)\nproject(Old LANGUAGES CXX)\nfind_package(QKModelDataBase 0.1 REQUIRED)\n' \
  >"$work/old/CMakeLists.txt"
if cmake -S "$work/old" -B "$work/old/build" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null 2>&1; then
  fail "find_package(QKModelDataBase 0.1) accepted version 0.2"
fi

# 2. pkg-config, with the library found through the prefix's own lib folder.
export PKG_CONFIG_PATH
PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name QKModelDataBase.pc)")
libdir=$(pkg-config --variable=libdir QKModelDataBase)
mkdir -p "$work/pc"
for example in city_climate wall type_walls room_use; do
  # shellcheck disable=SC2046
  g++ -std=c++20 "$source/examples/$example.cpp" -o "$work/pc/$example" $(pkg-config --cflags --libs QKModelDataBase) \
    -Wl,-rpath,"$libdir"
done
run_examples "$work/pc"

# 3. The installed qkdb finds its database and data beside itself.
version=$(env -u QKDB_DATABASE "$prefix/bin/qkdb" --version)
grep -qF "database: $(cd "$prefix/share/QKModelDataBase" && pwd -P)/reference.db" <<<"$version" ||
  fail "installed qkdb does not use the installed database: $version"
answer=$(env -u QKDB_DATABASE "$prefix/bin/qkdb" weather 郑州) || fail "installed qkdb weather 郑州 failed"
grep -qF "郑州, 河南, 中国" <<<"$answer" || fail "installed qkdb weather 郑州: $answer"

# 3a. The modules beside the installed library, loaded when a command needs them: the PostgreSQL backend
# (a server nobody answers on port 1 gives the server's reason, not a missing module) and the Access reader.
[ -n "$(find "$prefix" -path "*/QKModelDataBase/postgresql.so")" ] || fail "the PostgreSQL module was not installed"
[ -n "$(find "$prefix" -path "*/QKModelDataBase/qkdb-access.so")" ] || fail "the Access reader module was not installed"
server_uri=postgresql://qk@127.0.0.1:1/none
check_server_reached() {
  local what=$1 words=$2
  grep -qF "127.0.0.1" <<<"$words" || fail "$what did not reach the server: $words"
  grep -qF "cannot be used" <<<"$words" && fail "$what cannot load the PostgreSQL module: $words"
  return 0
}
words=$("$prefix/bin/qkdb" weather 郑州 --db "$server_uri" 2>&1) && fail "installed qkdb opened $server_uri"
check_server_reached "installed qkdb" "$words"
"$prefix/bin/qkdb" import-access "$source/docs/examples/DateTestDatabase.mdb" --db "$work/dates.db" >/dev/null ||
  fail "installed qkdb import-access failed"

# 3b. The installed Python package (when the build made it) finds the library and the database beside
# itself: the figure of GB 50736 for 三亚's heating, 17.9 °C.
package=$(find "$prefix" -type d -path "*/dist-packages/qkdb" | head -n 1)
if [ -n "$package" ]; then
  heating=$(cd "$work" && env -u QKDB_DATABASE PYTHONPATH="$(dirname "$package")" /usr/bin/python3 -c \
    "import qkdb; print(qkdb.open().weather('三亚').heating_db_c)") || fail "the installed Python package failed"
  [ "$heating" = "17.9" ] || fail "the installed Python package answers $heating for 三亚's heating, not 17.9"
  words=$(cd "$work" && PYTHONPATH="$(dirname "$package")" /usr/bin/python3 -c \
    "import qkdb
try:
    qkdb.open('$server_uri')
except ValueError as e:
    print(e)") || fail "the installed Python package crashed on $server_uri"
  check_server_reached "the installed Python package" "$words"
fi

# 4. The Debian packages: their file lists, then unpacked into a scratch root, where qkdb runs.
cpack -G DEB --config "$build/CPackConfig.cmake" -B "$work" >/dev/null
runtime=$(ls "$work"/qkmodeldatabase_*.deb)
dev=$(ls "$work"/qkmodeldatabase-dev_*.deb)
runtime_files=$(dpkg-deb -c "$runtime")
dev_files=$(dpkg-deb -c "$dev")
for f in ./usr/bin/qkdb /libQKModelDataBase.so.0 /QKModelDataBase/postgresql.so /QKModelDataBase/qkdb-access.so \
         ./usr/share/QKModelDataBase/reference.db ./usr/share/QKModelDataBase/data/schema.sql \
         ./usr/share/QKModelDataBase/data/SOURCES.md; do
  grep -qF -- "$f" <<<"$runtime_files" || fail "$(basename "$runtime") lacks $f"
done
for f in ./usr/include/QKModelDataBase/geography/CQKCity.h /QKModelDataBaseConfig.cmake /QKModelDataBase.pc \
         "/libQKModelDataBase.so ->"; do
  grep -qF -- "$f" <<<"$dev_files" || fail "$(basename "$dev") lacks $f"
done
grep -qF "include/" <<<"$runtime_files" && fail "$(basename "$runtime") holds headers"
depends=$(dpkg-deb -f "$dev" Depends)
grep -qF "qkmodeldatabase (= " <<<"$depends" || fail "the -dev package does not depend on the runtime one: $depends"
root="$work/root"
dpkg -x "$runtime" "$root"
dpkg -x "$dev" "$root"
answer=$(env -u QKDB_DATABASE "$root/usr/bin/qkdb" weather 郑州) || fail "packaged qkdb weather 郑州 failed"
grep -qF "郑州, 河南, 中国" <<<"$answer" || fail "packaged qkdb weather 郑州: $answer"
words=$("$root/usr/bin/qkdb" weather 郑州 --db "$server_uri" 2>&1) && fail "packaged qkdb opened $server_uri"
check_server_reached "packaged qkdb" "$words"
"$root/usr/bin/qkdb" import-access "$source/docs/examples/DateTestDatabase.mdb" --db "$work/dates-packaged.db" \
  >/dev/null || fail "packaged qkdb import-access failed"
echo "consumer test: find_package, pkg-config, installed qkdb and Debian packages all work"
