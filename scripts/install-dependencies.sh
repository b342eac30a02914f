#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running need; says which of them were missing.
# Needs root or sudo when something is missing, and the network to Debian's packages. Does nothing when all are there.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config ccache lld python3
  qtbase5-dev libqt5svg5-dev qttools5-dev qttools5-dev-tools fonts-dejavu-core fonts-wqy-microhei
  liblog4cxx-dev libbson-dev libzstd-dev libcli11-dev libabsl-dev nlohmann-json3-dev
  libboost-dev libboost-thread-dev libboost-system-dev libboost-chrono-dev
)
if [[ "${1:-}" == "--with-tests" ]]; then
  packages+=(
    libgtest-dev libgmock-dev libbenchmark-dev
    clang-14 clang-format-14 libclang-rt-14-dev llvm-14
    xvfb xauth openbox git doxygen
  )
fi
if [[ "${1:-}" == "--with-packaging" ]]; then
  packages+=(dpkg-dev file)
fi
if [[ "${1:-}" == "--with-docs" ]]; then
  packages+=(doxygen)
fi

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
  [[ "$status" == "installed" ]] || missing+=("$package")
done
if ((${#missing[@]} == 0)); then
  exit 0
fi

echo "Installing ${#missing[@]} missing Debian packages: ${missing[*]}"
as_root=()
if [[ "$(id -u)" != "0" ]]; then
  if ! command -v sudo >/dev/null; then
    echo "error: these packages are missing and neither root nor sudo is at hand: ${missing[*]}" >&2
    exit 2
  fi
  as_root=(sudo)
fi
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
echo "Installed."
