#!/usr/bin/env bash
# Runs the terminal's real window on a display of its own, under a window manager: it starts, plays, changes mode,
# theme and instrument, seeks, pauses and closes. Exit code 77 where xvfb or openbox is missing.
#
#   scripts/window_test.sh PROGRAM [ARGS...]    PROGRAM is depth-terminal
set -euo pipefail

if [[ "${1:-}" == "--inside" ]]; then
  shift
  work=$(mktemp -d)
  # A window that is there before its manager never becomes active.
  openbox --startup "touch $work/ready" >/dev/null 2>&1 &
  manager=$!
  trap 'kill "$manager" 2>/dev/null || true; rm -rf "$work"' EXIT
  for ((i = 0; i < 100; ++i)); do
    [[ -e "$work/ready" ]] && break
    sleep 0.1
  done
  QT_QPA_PLATFORM=xcb "$@" --tour
  exit 0
fi

for needed in xvfb-run openbox; do
  if ! command -v "$needed" >/dev/null; then
    echo "skipped: $needed is not installed (scripts/install-dependencies.sh --with-tests)"
    exit 77
  fi
done
unset WAYLAND_DISPLAY
exec xvfb-run -a -s "-screen 0 1600x1000x24" "$0" --inside "$@"
