#!/usr/bin/env bash
# Fuzzes the store-file and drawing readers for a bounded time: builds the libFuzzer targets
# with clang in build/fuzz (the normal build is not touched) and runs each on its seed
# corpus fuzz/corpus/NAME for half of SECONDS (default 120). New inputs are kept in
# build/fuzz/corpus, faults in build/fuzz/findings; the exit status is not zero when a
# target finds one. Needs the Debian packages clang and libclang-rt-14-dev.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-120}
case "$seconds" in
  '' | *[!0-9]*) echo "usage: scripts/fuzz.sh [SECONDS]" >&2; exit 2 ;;
esac
build=build/fuzz
launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
  -DQEN_FUZZ=ON -DQEN_BUILD_TESTS=OFF -DQEN_BUILD_BENCH=OFF -DQEN_WITH_WX=OFF "${launcher[@]}" >/dev/null
cmake --build "$build" --target StoreFileFuzz DrawingFuzz
each=$(((seconds + 1) / 2))
mkdir -p "$build/findings"
for pair in StoreFileFuzz:store DrawingFuzz:drawing; do
  target=${pair%%:*}
  corpus=${pair##*:}
  mkdir -p "$build/corpus/$corpus"
  echo "fuzzing $target for $each s"
  "$build/fuzz/$target" "$build/corpus/$corpus" "fuzz/corpus/$corpus" -max_total_time="$each" -max_len=8192 \
    -timeout=10 -rss_limit_mb=2048 -artifact_prefix="$build/findings/$corpus-" -print_final_stats=1 2>&1 | grep -v -e "# Uses:" | tail -n 30
done
echo "fuzzing found no fault"
