#!/usr/bin/env bash
# Runs plovix-replay under valgrind's memcheck: the built-in demo, then a short scripted session
# with preview size changes, a refused format and re-initialisation. Fails on any memory error and
# on any block still allocated at exit, reachable or not. Installs valgrind if it is missing.
# Usage: scripts/valgrind.sh [--frames N]   (demo frames, default all 300)
set -euo pipefail
cd "$(dirname "$0")/.."

frames=300
while [ $# -gt 0 ]; do
  case "$1" in
    --frames)
      [ $# -ge 2 ] || { echo "valgrind.sh: --frames needs a number" >&2; exit 2; }
      frames=$2; shift 2 ;;
    --frames=*) frames=${1#*=}; shift ;;
    -h|--help) sed -n '2,5p' "$0"; exit 0 ;;
    *) echo "valgrind.sh: unknown option $1" >&2; exit 2 ;;
  esac
done
[[ "$frames" =~ ^[1-9][0-9]*$ ]] || { echo "valgrind.sh: --frames needs a positive whole number, not '$frames'" >&2; exit 2; }

scripts/setup.sh valgrind
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DPLOVIX_SANITIZE= -DPLOVIX_BUILD_TOOLS=ON >/dev/null
cmake --build build -j"$(nproc)" --target plovix-replay

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The paths the demo alone does not take. The tool scales the whole picture for a size event, so
# the sensor corrections are not meant to be accurate here, only exercised.
cat >"$work/session.txt" <<'EOF'
stride 3 1000          # a pitch below the width: logged, rows still read width apart
stride 4 auto
sensor 10 0            # a 4:3 sensor: size changes move the track rectangle
size 12 640x480        # no decimation at this size
format 24 5            # refused with -1, twice
format 26 7
size 36 1280x720
reinit 50              # deinit + init while tracking
touch 62 -134 171      # the disc again
zoom 70 2.0
zoom 80 1.0
size 90 1920x1080
EOF

memcheck() {
  valgrind --quiet --error-exitcode=1 --leak-check=full --show-leak-kinds=all --errors-for-leak-kinds=all "$@"
}

replay=build/tools/replay/plovix-replay
echo "valgrind: demo, $frames frames"
memcheck "$replay" --demo --frames "$frames" --out "$work/demo" --quiet
echo "valgrind: scripted session, 100 frames"
memcheck "$replay" --demo --frames 100 --script "$work/session.txt" --out "$work/session" --quiet
echo "valgrind: no memory errors, nothing left allocated"
