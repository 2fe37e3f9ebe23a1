#!/usr/bin/env bash
# The main job on the factory settings: builds, lists the entry functions, writes the
# factory settings store and shows a few of its values, then opens the setting-block dialog on
# them. Further arguments go to that run, e.g. --script FILE or --country en.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh
./scripts/build.sh build/release -DCMAKE_BUILD_TYPE=Release -DQEN_BUILD_TESTS=OFF
host=build/release/qen-host
demo=build/release/demo
mkdir -p "$demo"
echo "== entry functions"
"$host" list
echo "== factory settings"
"$host" init --store "$demo/settings.json"
"$host" store "$demo/settings.json" check
echo "*HZ_KLOTZ*\\B = $("$host" store "$demo/settings.json" get '*HZ_KLOTZ*\B')"
"$host" store "$demo/settings.json" set '*HZ_KLOTZ*\B' 40.0
echo "after set: *HZ_KLOTZ*\\B = $("$host" store "$demo/settings.json" get '*HZ_KLOTZ*\B')"
echo "== setting-block dialog (a window when a display is present; headless it opens and is cancelled)"
"$host" run KLOTZ --store "$demo/settings.json" "$@"
