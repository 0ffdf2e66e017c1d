#!/usr/bin/env bash
# scripts/compare_replays.sh with a stand-in for plovix-replay whose output the environment bends:
# FAKE_LOG changes engine.log, FAKE_FAIL_ON makes the session whose options contain it fail.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
compare=$here/../../scripts/compare_replays.sh
source "$here/script_test_lib.sh"
export TMPDIR=$work  # the outputs a failed comparison keeps land here and are removed with it

fake=$work/fake-replay
cat >"$fake" <<'FAKE'
#!/usr/bin/env bash
out=
for a in "$@"; do
  [ -n "${FAKE_FAIL_ON:-}" ] && [[ "$a" == *"$FAKE_FAIL_ON"* ]] && exit 1
done
while [ $# -gt 0 ]; do [ "$1" = --out ] && out=$2; shift; done
mkdir -p "$out"
printf 'frame,ret,nTrackState\n0,0,2\n' >"$out/frames.csv"
printf '0 4 %s\n' "${FAKE_LOG:-PlovixPlugin init called}" >"$out/engine.log"
FAKE
chmod +x "$fake"

expect "identical tools agree" 0 "OK: 3 sessions" "$compare" "$fake" "$fake"
expect "a different log fails and names it" 1 "demo: engine.log DIFFERS" \
  "$compare" --emulator "env FAKE_LOG=other" "$fake" "$fake"
expect "files that agree are still reported" 1 "nv21-sizes: frames.csv identical" \
  "$compare" --emulator "env FAKE_LOG=other" "$fake" "$fake"
expect "the first lines that differ are shown" 1 "> 0 4 other" \
  "$compare" --emulator "env FAKE_LOG=other" "$fake" "$fake"
expect "a failing replay fails the comparison" 1 "" \
  "$compare" --emulator "env FAKE_FAIL_ON=nv12_events" "$fake" "$fake"
expect "one tool is not enough" 2 "give two plovix-replay binaries" "$compare" "$fake"
expect "a tool that is not there" 2 "nowhere: not an executable" "$compare" "$fake" "$work/nowhere"
finish
