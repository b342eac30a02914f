#!/usr/bin/env bash
# Builds and tests everything: the whole suite with warnings as errors, then the tests of engine, models, feeds and of
# the panels that threads reach under AddressSanitizer and UBSan and under ThreadSanitizer, then ten seconds of each
# fuzz target.
#
#   ./test.sh            all of it
#   ./test.sh dev        one stage: dev, asan, tsan, fuzz
#   ./test.sh panels     besides: the tests of all panels and of the window under AddressSanitizer and UBSan
set -euo pipefail
cd "$(dirname "$0")"

stages=("${@:-all}")
for stage in "${stages[@]}"; do
  if [[ ! "$stage" =~ ^(all|dev|asan|tsan|fuzz|panels)$ ]]; then
    echo "error: no stage is called '$stage'; there are: dev, asan, tsan, fuzz, all, panels" >&2
    exit 2
  fi
done
scripts/install-dependencies.sh --with-tests

wants() { [[ " ${stages[*]} " == *" all "* || " ${stages[*]} " == *" $1 "* ]]; }
jobs=$(nproc)

# What the sanitizers run; the rest is not even built for them.
sanitized=(test_engine test_engine_truth test_feed test_models_holographic test_models_ladder test_models_status
  test_models_tick test_queue_view test_information test_level_panels)
sanitized_labels='engine|models|feed|panel_threads'
panels=(test_toolkit test_frame test_queue_view_rules test_thousand test_tick test_holographic test_terminal_window
  test_terminal_settings test_terminal_state)

# Builds the targets (0 of them: all) of one preset, runs its tests and keeps ctest's output for the summary at the end.
summaries=()
run_tests() {
  local preset=$1 count=$2
  shift 2
  local targets=("${@:1:count}")
  shift "$count"
  echo "== $preset: build"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" ${targets[@]+--target "${targets[@]}"} -- -j "$jobs"
  echo "== $preset: test"
  local log="build/$preset/ctest.log"
  ctest --preset "$preset" -j "$jobs" --no-tests=error "$@" 2>&1 | tee "$log" | grep -vE '^ *[0-9]+/[0-9]+ Test .* Passed|^ *Start '
  summaries+=("$preset: $(grep -E 'tests passed' "$log")")
}

if wants dev; then
  echo "== format"
  scripts/check-format.sh
  run_tests dev 0
fi
if wants asan; then
  run_tests asan ${#sanitized[@]} "${sanitized[@]}" -L "$sanitized_labels"
fi
if wants tsan; then
  run_tests tsan ${#sanitized[@]} "${sanitized[@]}" -L "$sanitized_labels"
fi
if [[ " ${stages[*]} " == *" panels "* ]]; then
  run_tests asan ${#panels[@]} "${panels[@]}" -L 'gui|toolkit'
fi
if wants fuzz; then
  echo "== fuzz: build"
  cmake --preset fuzz >/dev/null
  cmake --build --preset fuzz --target fuzzers -- -j "$jobs"
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
