#!/usr/bin/env bash
# Runs each fuzz target of the `fuzz` preset for so many seconds, two at a time, from its seed corpus. New inputs go to
# build/fuzz/found; a finding is kept there and ends the script with an error.
#
#   scripts/fuzz.sh 600
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-10}
found=build/fuzz/found
mkdir -p "$found"

run_target() {
  local target=$1 seconds=$2 found=$3
  local name
  name=$(basename "$target")
  mkdir -p "$found/$name"
  # A corpus folder serves every target whose name begins with its own.
  local seeds=()
  for folder in fuzz/corpus/*/; do
    [[ "$name" == "fuzz_$(basename "$folder")"* ]] && seeds+=("$folder")
  done
  if ! "$target" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 -print_final_stats=1 \
      -artifact_prefix="$found/$name-" "$found/$name" "${seeds[@]}" >"$found/$name.log" 2>&1; then
    echo "$name: FINDING, see $found/$name.log"
    tail -n 40 "$found/$name.log"
    return 1
  fi
  echo "$name: $(grep -E 'stat::number_of_executed_units' "$found/$name.log" | awk '{print $2}') runs, no finding"
}
export -f run_target
find build/fuzz/fuzz -maxdepth 1 -type f -executable -name 'fuzz_*' | sort |
  xargs -P 2 -I{} bash -c 'run_target "$@"' _ {} "$seconds" "$found"
