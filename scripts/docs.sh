#!/usr/bin/env bash
# Makes the reference of the installed headers with Doxygen, into build/docs/html/index.html. A warning is an error.
set -euo pipefail
cd "$(dirname "$0")/.."
if ! command -v doxygen >/dev/null; then
  scripts/install-dependencies.sh --with-docs
fi
mkdir -p build/docs
# The headers that are installed, and nothing else.
headers=$(sed -nE 's|^ +([^ ]+\.h)$|src/\1|p' cmake/PublicHeaders.cmake | tr '\n' ' ')
{
  cat Doxyfile
  echo "INPUT += $headers"
} | doxygen -
echo "build/docs/html/index.html"
