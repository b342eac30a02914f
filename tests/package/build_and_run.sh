#!/usr/bin/env bash
# Builds a program against an installed library, with nothing of this project at hand but what is installed, runs it, and
# holds what it prints against a file. The program is given the name of a picture to write, which must not be blank.
#
#   build_and_run.sh CMAKE CXX PREFIX SOURCE_DIR EXPECTED
set -euo pipefail
cmake=$1 cxx=$2 prefix=$3 source=$4 expected=$5
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$source" "$work/source"
name=$(basename "$source")

launcher=()
if command -v ccache >/dev/null; then
  launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi
"$cmake" -S "$work/source" -B "$work/build" -DCMAKE_BUILD_TYPE=Release -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_CXX_FLAGS="-Wall -Wextra -Werror" "${launcher[@]}" >"$work/configure.log" 2>&1 ||
  { cat "$work/configure.log"; exit 1; }
"$cmake" --build "$work/build" >"$work/build.log" 2>&1 || { cat "$work/build.log"; exit 1; }

"$work/build/$name" "$work/picture.png" >"$work/output"
diff -u "$expected" "$work/output"
# A picture of one colour of this size takes less than two thousand bytes.
size=$(stat -c %s "$work/picture.png")
if ((size < 2000)); then
  echo "the picture is blank: $size bytes"
  exit 1
fi
