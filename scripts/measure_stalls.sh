#!/usr/bin/env bash
# Measures how long the terminal's event loop stands still while a busy open is replayed at 60 times real time, in
# every style of the queue, and records it in bench/results/terminal_stalls.md. Builds in release; no display needed.
#
#   scripts/measure_stalls.sh [PROGRAM]    PROGRAM is a depth-terminal that was built already
set -euo pipefail
cd "$(dirname "$0")/.."

program=${1:-}
if [[ -z "$program" ]]; then
  scripts/install-dependencies.sh
  cmake --preset release >/dev/null
  cmake --build --preset release --target depth-terminal
  program=build/release/apps/depth-terminal/depth-terminal
fi

orders=450000 # of the day: some 20,000 records in each of the first minutes after the open
seconds=3     # of real time: three minutes of the day
result=bench/results/terminal_stalls.md
{
  echo "# Stalls of the terminal's event loop"
  echo
  echo "$(date +%F), commit $(git rev-parse --short HEAD), $(nproc) cores, load $(cut -d' ' -f1 /proc/loadavg) at the start." \
    "Made by \`scripts/measure_stalls.sh\`: the open of a simulated day of $orders orders at 60x, $seconds s, window 1600x960." \
    "Asked: no stall above 50 ms."
  echo
  echo "| layout, modes | result |"
  echo "|---|---|"
} >"$result"
measure() { # NAME ARGS...
  local name=$1 line
  shift
  line=$(QT_QPA_PLATFORM=offscreen "$program" --day-orders "$orders" --at 09:30 --speed 60 --measure-stalls "$seconds" "$@")
  echo "| $name | $line |" | tee -a "$result"
}
for modes in ten,first ten,horizontal ten,vertical,full ten,list,full; do
  measure "queue, $modes" --layout queue --mode "$modes"
done
measure tick --layout tick
measure chart --layout chart
