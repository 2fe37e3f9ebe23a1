#!/usr/bin/env bash
# Builds and runs every test: once plainly, once under address and undefined-behaviour
# sanitizers, then fuzzes the file readers for a bounded time. Installs what is missing first.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh
jobs=$(nproc)
./scripts/build.sh build/test -DCMAKE_BUILD_TYPE=Debug -DQEN_BUILD_BENCH=ON
ctest --test-dir build/test --output-on-failure -j "$jobs"
./scripts/build.sh build/asan -DCMAKE_BUILD_TYPE=Debug -DQEN_SANITIZE=ON
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --test-dir build/asan --output-on-failure -j "$jobs"
# The store-file and drawing readers under the fuzzer, for two minutes.
./scripts/fuzz.sh 120
echo "all tests passed (plain, sanitized and fuzzed)"
