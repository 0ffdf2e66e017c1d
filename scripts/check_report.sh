#!/usr/bin/env bash
# Renders a plovix-replay report in headless Chromium and checks what a person would see: the page
# loads without console errors, shows its plots, and its embedded contact sheet decodes.
# Usage: scripts/check_report.sh [REPORT.html [SCREENSHOT.png]]
#   Without REPORT, runs the replay tool's demo (build/tools/replay/plovix-replay) first.
#   The screenshot goes to SCREENSHOT.png (default: report.png beside the report).
set -euo pipefail
cd "$(dirname "$0")/.."

min_plots=3  # state, box centre, velocity (the demo adds a fourth, the centre error)

if [ $# -ge 1 ]; then
  report=$1
else
  tool=${PLOVIX_REPLAY:-build/tools/replay/plovix-replay}
  if [ ! -x "$tool" ]; then
    echo "check_report: $tool not built (run scripts/test.sh first)" >&2
    exit 2
  fi
  out=$(mktemp -d)
  "$tool" --demo --no-annotated --quiet --out "$out"
  report=$out/report.html
fi
[ -f "$report" ] || { echo "check_report: $report: no such file" >&2; exit 2; }
report=$(cd "$(dirname "$report")" && pwd)/$(basename "$report")
shot=${2:-$(dirname "$report")/report.png}

browser=$(command -v chromium || command -v chromium-browser || true)
if [ -z "$browser" ]; then
  echo "check_report: installing chromium"
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -q >/dev/null
  $SUDO apt-get install -y -q chromium >/dev/null
  browser=$(command -v chromium)
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
run_browser() {
  "$browser" --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
    --disable-background-networking --disable-component-update --disable-sync \
    --user-data-dir="$(mktemp -d -p "$work")" --enable-logging=stderr --v=0 \
    --window-size=1000,2000 "$@" "file://$report"
}
run_browser --screenshot="$shot" >"$work/shot.out" 2>"$work/shot.err" || true
run_browser --dump-dom >"$work/dom.html" 2>"$work/dom.err" || true

status=0
console='CONSOLE|Uncaught|Failed to load|Not allowed to load'
if grep -h -E "$console" "$work/shot.err" "$work/dom.err"; then
  echo "check_report: FAIL: console errors while loading $report" >&2
  status=1
fi
plots=$(grep -o '<svg' "$work/dom.html" | wc -l)
if [ "$plots" -lt "$min_plots" ]; then
  echo "check_report: FAIL: $plots plots in the rendered page, expected at least $min_plots" >&2
  status=1
fi
if ! grep -q 'data-loaded="yes"' "$work/dom.html"; then
  echo "check_report: FAIL: the contact sheet image did not load" >&2
  status=1
fi
if [ ! -s "$shot" ]; then
  echo "check_report: FAIL: no screenshot was written" >&2
  status=1
fi
if [ "$status" -eq 0 ]; then
  echo "check_report: OK: $plots plots, contact sheet loaded, no console errors; screenshot $shot"
fi
exit "$status"
