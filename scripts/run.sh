#!/usr/bin/env bash
# Builds the project (default preset) and runs the main job: the qkdb tool on an example wall.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
cmake --preset default >/dev/null
cmake --build --preset default
build/default/tools/qkdb/qkdb --version
# A plastered 240 mm brick wall (material values of the Chinese thermal design code's tables): its U,
# inertia, decrement, delay, harmonics and hourly response terms, then the brick thickness for U = 1.5.
build/default/tools/qkdb/qkdb wall docs/examples/plastered-brick-wall.json
build/default/tools/qkdb/qkdb thickness --target-u 1.5 docs/examples/plastered-brick-wall.json
