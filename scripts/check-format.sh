#!/usr/bin/env bash
# Every C++ file is formatted as .clang-format says. With --fix, formats them.
set -euo pipefail
cd "$(dirname "$0")/.."
tool=$(command -v clang-format-14 || command -v clang-format)
mapfile -t files < <(git ls-files '*.h' '*.cpp')
if ((${#files[@]} == 0)); then
  # Without names the formatter would wait for its standard input.
  echo "error: git lists no sources here" >&2
  exit 2
fi
if [[ "${1:-}" == "--fix" ]]; then
  "$tool" -i "${files[@]}"
  exit 0
fi
"$tool" --dry-run -Werror "${files[@]}"
