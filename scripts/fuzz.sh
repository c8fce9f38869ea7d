#!/usr/bin/env bash
# Builds the fuzz preset (clang, ASan + UBSan) and runs every libFuzzer target for SECONDS (default 60)
# on a copy of its seed corpus, so the committed corpus in fuzz/corpus/ does not grow with every run.
# Fails when any target finds a crash, a hang (10 s on one input), a leak or an allocation over 64 MB;
# the input that did it is left in build/fuzz/runs/<target>/findings/, the log beside it.
#   scripts/fuzz.sh           60 s per target
#   scripts/fuzz.sh 3600      an hour per target
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"
scripts/deps.sh test
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz

export UBSAN_OPTIONS="print_stacktrace=1"
targets=(DataInPutFuzzer AccessDialectFuzzer RecordLookupFuzzer WallInputFuzzer EpwFileFuzzer AccessValuesFuzzer)
failed=()
for target in "${targets[@]}"; do
  run="build/fuzz/runs/$target"
  rm -rf "$run"
  mkdir -p "$run/corpus" "$run/findings"
  cp fuzz/corpus/"$target"/* "$run/corpus/"
  echo "fuzzing $target for ${seconds} s"
  if ! "build/fuzz/fuzz/$target" -max_total_time="$seconds" -timeout=10 -malloc_limit_mb=64 \
      -artifact_prefix="$run/findings/" -print_final_stats=1 "$run/corpus" >"$run/log" 2>&1; then
    failed+=("$target")
    tail -n 40 "$run/log"
  fi
  grep -E "^stat::number_of_executed_units" "$run/log" || true
done
if [ ${#failed[@]} -gt 0 ]; then
  echo "findings in: ${failed[*]} (inputs in build/fuzz/runs/<target>/findings/)"
  exit 1
fi
