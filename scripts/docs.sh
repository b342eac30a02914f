#!/usr/bin/env bash
# Makes the reference of the installed headers with Doxygen: html/index.html in build/docs. A warning is an error.
#
#   scripts/docs.sh [FOLDER]     into another folder
set -euo pipefail
cd "$(dirname "$0")/.."
folder=${1:-build/docs}
if ! command -v doxygen >/dev/null; then
  scripts/install-dependencies.sh --with-docs
fi
mkdir -p "$folder"
# The headers that are installed, and nothing else.
headers=$(sed -nE 's|^ +([^ ]+\.h)$|src/\1|p' cmake/PublicHeaders.cmake | tr '\n' ' ')
{
  cat Doxyfile
  echo "OUTPUT_DIRECTORY = $folder"
  echo "INPUT += $headers"
} | doxygen -
echo "$folder/html/index.html"
