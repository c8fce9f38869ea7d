#!/usr/bin/env bash
# Builds the project (default preset), builds the reference database from the shipped data, and runs
# a short session of real work on it: a city's design climate, one borrowed from a neighbour, the
# trees of the library, and the walls of an envelope type; then the wall calculation on an example.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
cmake --preset default >/dev/null
cmake --build --preset default
qkdb=build/default/tools/qkdb/qkdb
export QKDB_DATABASE="$PWD/build/default/reference.db"
$qkdb --version
$qkdb init --force
$qkdb weather 郑州
# 唐山 has no weather file of its own: the tool says whose climate it borrows, and how far away it is.
$qkdb weather 唐山
$qkdb weather --near 113.6,34.7 --json
$qkdb tree weather --with-weather | sed -n 1,20p  # the first lines (sed reads to the end: no broken pipe)
$qkdb tree envelope
$qkdb tree rooms
$qkdb walls --type ASHRAE外墙
# A plastered 240 mm brick wall (material values of the Chinese thermal design code's tables): its U,
# inertia, decrement, delay, harmonics and hourly response terms, then the brick thickness for U = 1.5.
$qkdb wall docs/examples/plastered-brick-wall.json
$qkdb thickness --target-u 1.5 docs/examples/plastered-brick-wall.json
