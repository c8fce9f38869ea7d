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
ctest --preset "$preset" -j "$(nproc)"
