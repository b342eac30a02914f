#!/usr/bin/env bash
# Builds and tests everything: the whole suite with warnings as errors, then engine, model and feed tests under
# AddressSanitizer and UBSan and under ThreadSanitizer, then ten seconds of each fuzz target.
#
#   ./test.sh            all of it
#   ./test.sh dev        one stage: dev, asan, tsan, fuzz
set -euo pipefail
cd "$(dirname "$0")"

stages=("${@:-all}")
for stage in "${stages[@]}"; do
  if [[ ! "$stage" =~ ^(all|dev|asan|tsan|fuzz)$ ]]; then
    echo "error: no stage is called '$stage'; there are: dev, asan, tsan, fuzz, all" >&2
    exit 2
  fi
done
scripts/install-dependencies.sh --with-tests

wants() { [[ " ${stages[*]} " == *" all "* || " ${stages[*]} " == *" $1 "* ]]; }
jobs=$(nproc)

# Runs one preset's tests and keeps ctest's output for the summary at the end.
summaries=()
run_tests() {
  local preset=$1
  shift
  echo "== $preset: build"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -- -j "$jobs"
  echo "== $preset: test"
  local log="build/$preset/ctest.log"
  ctest --preset "$preset" -j "$jobs" --no-tests=error "$@" 2>&1 | tee "$log" | grep -vE '^ *[0-9]+/[0-9]+ Test .* Passed|^ *Start '
  summaries+=("$preset: $(grep -E 'tests passed' "$log")")
}

if wants dev; then
  echo "== format"
  scripts/check-format.sh
  run_tests dev
fi
if wants asan; then
  run_tests asan -L 'engine|model|feed'
fi
if wants tsan; then
  run_tests tsan -L 'engine|model|feed'
fi
if wants fuzz; then
  echo "== fuzz: build"
  cmake --preset fuzz >/dev/null
  cmake --build --preset fuzz -- -j "$jobs"
  scripts/fuzz.sh "${DEPTH_FUZZ_SECONDS:-10}"
  summaries+=("fuzz: every target ran ${DEPTH_FUZZ_SECONDS:-10} s without a finding")
fi

echo
total=0
for summary in "${summaries[@]}"; do
  echo "$summary"
  count=$(sed -nE 's/.*tests passed, 0 tests failed out of ([0-9]+).*/\1/p' <<<"$summary")
  total=$((total + ${count:-0}))
done
# Whatever fails has ended the script before this line.
if ((total > 0)); then
  echo "tests: $total passed, 0 failed"
fi
