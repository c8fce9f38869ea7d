#!/usr/bin/env bash
# Builds the project (default preset), builds the reference database from the shipped data, and runs
# a short session of real work on it: a city's design climate, one whose hourly file is a neighbour's, the
# trees of the library, the Chinese catalogue's materials and walls, a room use's loads; then the wall
# calculation on an example, and the same database from Python.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh build
# Only what the tool and the database need: the tests and benchmarks are built by scripts/test.sh.
cmake --preset default -DQK_BUILD_TESTS=OFF -DQK_BUILD_BENCH=OFF >/dev/null
cmake --build --preset default
qkdb=build/default/tools/qkdb/qkdb
# The build made the reference database (build/default/share/QKModelDataBase/reference.db) with
# `qkdb init`; --version says which database and data qkdb uses.
$qkdb --version
# 郑州's hourly weather file is its own station's; 三亚 has its own design conditions and, having no file
# of its own, the hourly file of its nearest station that has one (海口), which the answer names.
$qkdb weather 郑州
$qkdb weather 三亚
# Other names: the official name, today's name of a renamed city, an English name.
$qkdb weather 重庆市 | sed -n 1,3p
$qkdb weather 襄阳 | sed -n 1,3p
$qkdb weather Sanya --json | tail -n 4
$qkdb weather --near 113.6,34.7 --json
$qkdb tree weather --with-weather | sed -n 1,20p  # the first lines (sed reads to the end: no broken pipe)
$qkdb tree envelope | sed -n 1,12p
$qkdb tree rooms | sed -n 1,8p
$qkdb walls --type ASHRAE外墙
# The Chinese catalogue: the polystyrene boards, then the first walls of the atlas 09J908-3's XPS type.
$qkdb materials --search 聚苯
$qkdb walls --type "09J908-3 XPS板保温外墙" | sed -n 1,6p
# A hotel guest room's indoor design conditions and loads (JGJ/T 449-2018).
$qkdb rooms 客房
# A plastered 240 mm brick wall (material values of the Chinese thermal design code's tables): its U,
# inertia, decrement, delay, harmonics and hourly response terms, then the brick thickness for U = 1.5.
$qkdb wall docs/examples/plastered-brick-wall.json
$qkdb thickness --target-u 1.5 docs/examples/plastered-brick-wall.json
# The Python package, where the build made it (docs/python.md).
if [ -d build/default/python/qkdb ]; then
  PYTHONPATH=build/default/python /usr/bin/python3 python/examples/tour.py
fi
