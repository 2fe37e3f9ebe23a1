#!/usr/bin/env bash
# Installs the Debian packages the build needs, only those missing (run as root): the
# compiler and libraries, wxWidgets for the windows, and what the window tests and the
# screenshot script use (a virtual display, synthetic input, screenshots), and clang with
# its fuzzer runtime for the readers' fuzz targets.
set -euo pipefail
packages=(g++ cmake ninja-build pkg-config libgtest-dev libgmock-dev libbenchmark-dev
          nlohmann-json3-dev libsqlite3-dev
          libwxgtk3.2-dev xvfb xauth xdotool imagemagick fonts-dejavu-core
          clang libclang-rt-14-dev)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "installing: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq "${missing[@]}"
fi
