#!/usr/bin/env bash
# screenshot.sh ENTRY COUNTRY OUT.png [qen-host run arguments…]
# Opens the dialog of an entry (LAYER, ITEM, qenDlgHzKl …) in a window under a virtual display
# (Xvfb, 1280x1024), in the country's language, on fresh factory settings unless the
# arguments name a store, and writes a screenshot of the dialog's window to OUT.png.
# QEN_HOST names the host program; by default the first built one of build/release,
# build/test and build is taken. Needs xvfb-run, xdotool and ImageMagick's import.
set -euo pipefail
if [ $# -lt 3 ]; then
  echo "usage: $0 ENTRY COUNTRY OUT.png [qen-host run arguments…]" >&2
  exit 2
fi
cd "$(dirname "$0")/.."
entry=$1 country=$2 out=$3
shift 3
case "$out" in /*) ;; *) out="$PWD/$out" ;; esac
host=${QEN_HOST:-}
if [ -z "$host" ]; then
  for h in build/release/qen-host build/test/qen-host build/qen-host; do
    if [ -x "$h" ]; then host=$PWD/$h; break; fi
  done
fi
[ -n "$host" ] || { echo "$0: no qen-host built (set QEN_HOST)" >&2; exit 2; }
for tool in xvfb-run xdotool import; do
  command -v "$tool" > /dev/null || { echo "$0: $tool is not installed" >&2; exit 2; }
done

# Under the virtual display (this script again, inside xvfb-run): start the dialog, wait for
# its first paint, take the picture.
shoot() {
  "$host" run "$entry" --gui --trace --country "$country" --store "$work/store.json" --out "$work/out.json" "$@" \
    > "$work/log" 2>&1 &
  local pid=$! wid=""
  for _ in $(seq 100); do
    grep -q "^trace: window [0-9]* shown" "$work/log" && break
    kill -0 "$pid" 2> /dev/null || break
    sleep 0.1
  done
  if grep -q "^trace: window [0-9]* shown" "$work/log"; then
    wid=$(xdotool search --onlyvisible --pid "$pid" 2> /dev/null | head -1 || true)
  fi
  if [ -z "$wid" ]; then
    kill "$pid" 2> /dev/null || true
    echo "$0: no window came up; qen-host said:" >&2
    cat "$work/log" >&2
    return 1
  fi
  sleep 0.3
  import -window "$wid" "$out"
  kill "$pid" 2> /dev/null || true
  wait "$pid" 2> /dev/null || true
  grep "^trace: window" "$work/log" | head -1
}
if [ -n "${QEN_SCREENSHOT_WORK:-}" ]; then
  work=$QEN_SCREENSHOT_WORK
  shoot "$@"
  exit
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$host" init --store "$work/store.json" > /dev/null
QEN_SCREENSHOT_WORK=$work QEN_HOST=$host xvfb-run -a -s "-screen 0 1280x1024x24" "$PWD/scripts/screenshot.sh" \
  "$entry" "$country" "$out" "$@"
echo "screenshot written to $out"
