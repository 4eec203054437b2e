#!/usr/bin/env bash
# Installs, only when missing, every Debian package the project needs to build, test and benchmark.
# Safe to run again: it asks apt-get for nothing when everything is already there.
set -euo pipefail

packages=(
  g++ cmake ninja-build pkg-config          # compiler and build
  libgtest-dev libgmock-dev googletest      # tests
  libbenchmark-dev                          # benchmarks
  qt6-base-dev qt6-base-dev-tools libgl-dev # the studio
  fonts-dejavu-core                         # text for the studio and its offscreen tests
  fonts-wqy-microhei                        # Japanese, Chinese and Korean names, captions and comments
  ripgrep                                   # the benchmarks' anchor
  unicode-data                              # the case-folding table's generator input
  xdg-utils                                 # the About box finds the browser through xdg-mime
  clang libclang-rt-14-dev                  # the fuzz targets (clang's libFuzzer runtime)
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "setup: installing ${missing[*]}" >&2
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
