#!/usr/bin/env bash
# Installs the library and what it takes to build against it into an empty folder.
#
#   install.sh CMAKE BUILD_DIR PREFIX
set -euo pipefail
cmake=$1 build=$2 prefix=$3
rm -rf "$prefix"
for component in runtime development; do
  "$cmake" --install "$build" --prefix "$prefix" --component "$component" >/dev/null
done
