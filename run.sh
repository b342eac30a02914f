#!/usr/bin/env bash
# Builds the program `depth` and shows what it does.
#
#   ./run.sh            a simulated day as it runs, then a recorded day if ../shared/data has one
#   ./run.sh ARGS...    depth ARGS...   (./run.sh --help)
#
# DEPTH_SHARED_DATA names another folder of recorded days.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

say() { echo "== $*" >&2; }

"$here/scripts/install-dependencies.sh" >&2
# A folder of its own, since tests and benchmarks want packages that the program does not.
build="$here/build/run"
say "building depth (build/run)"
log=$(mktemp)
work=
cleanup() { rm -rf "$log" ${work:+"$work"}; }
trap cleanup EXIT
if ! { (cd "$here" && cmake --preset release -B "$build" -DDEPTH_BUILD_TESTS=OFF -DDEPTH_BUILD_BENCHMARKS=OFF) &&
       cmake --build "$build" --target depth; } >"$log" 2>&1; then
  cat "$log" >&2
  say "the build failed"
  exit 2
fi
depth="$build/apps/depth/depth"

if (($# > 0)); then
  cleanup
  exec "$depth" "$@"
fi

say "a simulated day from 09:25 to the close, in some ten seconds"
"$depth" show --seed 7 --speed 1450 --from 09:25 --orders 8 --levels 5

data=${DEPTH_SHARED_DATA:-$here/../shared/data}
day="$data/600519-20230201"
if [[ ! -d "$day" ]]; then
  say "no recorded day at $day: done"
  exit 0
fi
work=$(mktemp -d)
say "importing the recorded day $day"
"$depth" import auto "$day" --out "$work/day"
say "its queue at three moments"
"$depth" show --day "$work/day" --at 09:25:03,10:30,15:00:05 --orders 10
say "the rebuilt queue against every published snapshot"
"$depth" verify --day "$work/day"
