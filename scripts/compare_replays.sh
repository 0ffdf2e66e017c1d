#!/usr/bin/env bash
# Replays the demo and the scripted sessions with two builds of plovix-replay and checks that the
# engine gave the same answers: frames.csv and engine.log must agree byte for byte (neither holds
# a wall-clock time).
# Usage: scripts/compare_replays.sh [--emulator CMD] REFERENCE_TOOL OTHER_TOOL
#   --emulator CMD   run OTHER_TOOL through CMD (split on spaces), e.g. "qemu-aarch64"
#   Prints one line per session; on a difference keeps both outputs and shows the first lines
#   that differ.
set -euo pipefail
cd "$(dirname "$0")/.."

usage() { sed -n '5,8p' "$0" | sed 's/^# \{0,1\}//'; }
die() { echo "compare_replays: $*" >&2; exit 2; }

emulator=()
tools=()
while [ $# -gt 0 ]; do
  case "$1" in
    --emulator) [ $# -ge 2 ] || die "--emulator needs a command"; read -ra emulator <<<"$2"; shift ;;
    -h|--help) usage; exit 0 ;;
    -*) die "unknown option $1" ;;
    *) tools+=("$1") ;;
  esac
  shift
done
[ ${#tools[@]} -eq 2 ] || die "give two plovix-replay binaries (see --help)"
for t in "${tools[@]}"; do [ -x "$t" ] || die "$t: not an executable"; done

# name | options (the scripts say what each session exercises)
sessions=(
  "demo|--demo"
  "nv12-events|--demo --scale 1280x720 --format nv12 --script scripts/sessions/nv12_events.txt"
  "nv21-sizes|--demo --format nv21 --script scripts/sessions/nv21_sizes.txt"
)
compared=(frames.csv engine.log)

work=$(mktemp -d)
failed=0
for s in "${sessions[@]}"; do
  name=${s%%|*}
  read -ra opts <<<"${s#*|}"
  common=(--no-annotated --quiet "${opts[@]}")
  "${tools[0]}" "${common[@]}" --out "$work/$name/reference"
  "${emulator[@]}" "${tools[1]}" "${common[@]}" --out "$work/$name/other"
  for f in "${compared[@]}"; do
    if cmp -s "$work/$name/reference/$f" "$work/$name/other/$f"; then
      echo "compare_replays: $name: $f identical ($(wc -l <"$work/$name/reference/$f") lines)"
    else
      echo "compare_replays: $name: $f DIFFERS" >&2
      diff "$work/$name/reference/$f" "$work/$name/other/$f" | head -n 10 >&2 || true
      failed=1
    fi
  done
done

if [ "$failed" -ne 0 ]; then
  echo "compare_replays: FAIL: outputs kept in $work" >&2
  exit 1
fi
rm -rf "$work"
echo "compare_replays: OK: ${#sessions[@]} sessions, ${compared[*]} identical"
