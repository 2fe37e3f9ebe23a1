#!/usr/bin/env bash
# build.sh DIR [cmake options…]: configures (once) and builds into DIR.
set -euo pipefail
cd "$(dirname "$0")/.."
dir=$1; shift
cmake -S . -B "$dir" -G Ninja "$@" > /dev/null
cmake --build "$dir"
