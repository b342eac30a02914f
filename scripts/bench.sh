#!/usr/bin/env bash
# Builds the benchmarks in release, runs them and records the medians in bench/results, one table a program.
#
#   scripts/bench.sh                     all of them
#   scripts/bench.sh bench_engine ...    some of them
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-dependencies.sh --with-tests
cmake --preset release -DDEPTH_BUILD_BENCHMARKS=ON >/dev/null
programs=("$@")
((${#programs[@]} > 0)) || programs=(bench_engine bench_simulation bench_csv bench_queue_view bench_tick bench_holographic bench_ladder bench_level)
cmake --build --preset release --target "${programs[@]}"
mkdir -p bench/results
for program in "${programs[@]}"; do
  echo "== $program"
  json=$(mktemp)
  "build/release/bench/$program" --benchmark_format=json --benchmark_out="$json" --benchmark_out_format=json >/dev/null
  python3 scripts/bench_table.py "$json" "$program" >"bench/results/$program.md"
  rm -f "$json"
  cat "bench/results/$program.md"
done
