#!/usr/bin/env bash
# Builds the programs and opens the terminal's window on a day.
#
#   ./run.sh                 a simulated day, from the open on
#   ./run.sh ARGS...         depth-terminal ARGS...   (./run.sh --help)
#   ./run.sh depth ARGS...   the command line program: depth ARGS...   (./run.sh depth --help)
#
# Without a display it writes pictures of the window into ./pictures: as ARGS say, or without any in both themes,
# of the simulated day and of a recorded day if ../shared/data has one. DEPTH_SHARED_DATA names another folder of
# recorded days.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

say() { echo "== $*" >&2; }

program=depth-terminal
given=$#
if [[ "${1:-}" == "depth" ]]; then
  program=depth
  shift
fi

"$here/scripts/install-dependencies.sh" >&2
# A folder of its own, since tests and benchmarks want packages that the programs do not.
build="$here/build/run"
first=""
[[ -e "$build/apps/$program/$program" ]] || first="; the first time takes some minutes"
say "building $program (build/run)$first"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
# Keeps what a build prints for the case that it fails; of its steps only the number is shown, to somebody who waits.
keep_log() {
  local line
  while IFS= read -r line; do
    printf '%s\n' "$line" >>"$log"
    if [[ -t 2 && "$line" =~ ^\[([0-9]+/[0-9]+)\] ]]; then
      printf '\r== step %s ' "${BASH_REMATCH[1]}" >&2
    fi
  done
  [[ ! -t 2 ]] || printf '\r\033[K' >&2
}
if ! { (cd "$here" && cmake --preset release -B "$build" -DDEPTH_BUILD_TESTS=OFF -DDEPTH_BUILD_BENCHMARKS=OFF) &&
       cmake --build "$build" --target "$program"; } 2>&1 | keep_log; then
  cat "$log" >&2
  say "the build failed"
  exit 2
fi
binary="$build/apps/$program/$program"

# Local tables for two instruments of the simulated exchange, unless other ones are named.
if [[ "$program" == "depth-terminal" && " $* " != *" --external-data"* ]]; then
  set -- "$@" --external-data "$here/examples/external_data"
fi

# Whether the arguments open a window at all.
opens_window() {
  [[ "$program" == "depth-terminal" ]] || return 1
  local argument
  for argument in "$@"; do
    case "$argument" in
      --shot | --shot=* | -h | --help | --version) return 1 ;;
    esac
  done
}

# A display that is named but does not answer is none.
if ! opens_window "$@" || "$binary" --probe-display; then
  rm -f "$log"
  exec "$binary" "$@"
fi

pictures="$PWD/pictures"
say "no display here: writing pictures of the window into $pictures"
mkdir -p "$pictures"
shots() { # NAME ARGS...: one picture in each theme
  local name=$1 theme
  shift
  for theme in dark light; do
    "$binary" --at 10:30 --external-data "$here/examples/external_data" "$@" --theme "$theme" --shot "$pictures/$name-$theme.png"
    say "$pictures/$name-$theme.png"
  done
}
if ((given > 0)); then
  "$binary" "$@" --shot "$pictures/terminal.png"
  say "$pictures/terminal.png"
  exit 0
fi
shots queue-desk --layout queue
shots tick-desk --layout tick
shots chart-desk --layout chart
shots list --mode ten,list,full
day="${DEPTH_SHARED_DATA:-$here/../shared/data}/600519-20230201"
if [[ -d "$day" ]]; then
  shots recorded-queue-desk --import auto "$day" --layout queue --mode ten,horizontal
  shots recorded-tick-desk --import auto "$day" --layout tick
  shots recorded-chart-desk --import auto "$day" --layout chart
else
  say "no recorded day at $day"
fi
