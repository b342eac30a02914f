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
hardened="-Wl,-z,relro,-z,now"
cmake --preset release -B build/package -DCMAKE_INSTALL_PREFIX=/usr \
  -DCMAKE_SHARED_LINKER_FLAGS="$hardened" -DCMAKE_EXE_LINKER_FLAGS="$hardened" \
  -DDEPTH_BUILD_TESTS=OFF -DDEPTH_BUILD_BENCHMARKS=OFF >/dev/null
cmake --build build/package
cmake --build build/package --target man_pages
mkdir -p "$folder"
folder=$(cd "$folder" && pwd)
(cd build/package && cpack -G DEB -B "$folder" >/dev/null)
rm -rf "$folder/_CPack_Packages"
ls "$folder"/*.deb
