#!/usr/bin/env bash
# Makes the Debian packages of this checkout into build/packages: the library, what it takes to build against it, and the
# programs.
#
#   scripts/package.sh [FOLDER]     into another folder
set -euo pipefail
cd "$(dirname "$0")/.."
folder=${1:-build/packages}
scripts/install-dependencies.sh --with-packaging
# The prefix decides about the folder of libraries, which for Debian has the machine's kind in its name.
cmake --preset release -B build/package -DCMAKE_INSTALL_PREFIX=/usr \
  -DDEPTH_BUILD_TESTS=OFF -DDEPTH_BUILD_BENCHMARKS=OFF >/dev/null
cmake --build build/package
mkdir -p "$folder"
folder=$(cd "$folder" && pwd)
(cd build/package && cpack -G DEB -B "$folder" >/dev/null)
rm -rf "$folder/_CPack_Packages"
ls "$folder"/*.deb
