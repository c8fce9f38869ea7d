#!/usr/bin/env bash
# Builds the project (default preset) and runs the main job: the qkdb tool.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
cmake --preset default >/dev/null
cmake --build --preset default
build/default/tools/qkdb/qkdb --version
build/default/tools/qkdb/qkdb --help
