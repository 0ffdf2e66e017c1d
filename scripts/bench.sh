#!/usr/bin/env bash
# Builds plovix-bench (Release, in build-bench/) and prints one table: the engine's cost per frame in
# each situation beside the floor and the OpenCV peers, heap calls per frame, then the peak heap of
# a session and the library's code size. Installs what it needs with apt-get.
# Usage: scripts/bench.sh [--quick] [--callgrind] [--no-peers] [--json FILE]
#   --quick       a short run for a smoke test: 2 repetitions, short minimum times
#   --callgrind   instead of the table: instructions per tracked 1080p frame, under callgrind
#   --no-peers    leave the OpenCV peers out (and do not install OpenCV)
#   --json FILE   where the results go (default bench-out/bench.json, bench-out/callgrind.json)
set -euo pipefail

quick=0
use_callgrind=0
peers=1
json=""
while [ $# -gt 0 ]; do
  case "$1" in
    --quick) quick=1 ;;
    --callgrind) use_callgrind=1 ;;
    --no-peers) peers=0 ;;
    --json)
      [ $# -ge 2 ] || { echo "bench.sh: --json needs a file name" >&2; exit 2; }
      json=$(realpath -m "$2"); shift ;;
    -h|--help) sed -n '2,9p' "$0"; exit 0 ;;
    *) echo "bench.sh: unknown option $1 (see --help)" >&2; exit 2 ;;
  esac
  shift
done
cd "$(dirname "$0")/.."

build=build-bench
packages=(libbenchmark-dev)
[ "$peers" -eq 1 ] && packages+=(libopencv-dev libopencv-contrib-dev)
[ "$use_callgrind" -eq 1 ] && packages+=(valgrind)
scripts/setup.sh "${packages[@]}"

peer_flag=OFF
[ "$peers" -eq 1 ] && peer_flag=ON
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DPLOVIX_BUILD_BENCH=ON -DPLOVIX_BENCH_PEERS=$peer_flag \
  -DPLOVIX_BUILD_TESTS=OFF -DPLOVIX_BUILD_TOOLS=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target plovix-bench >/dev/null
bench=$build/bench/plovix-bench

if [ "$use_callgrind" -eq 1 ]; then
  # Whole three-frame template cycles (and one lap of the disc where a lap is 60 frames).
  frames=60
  [ "$quick" -eq 1 ] && frames=9
  out=$build/callgrind.out
  valgrind --tool=callgrind --collect-atstart=no --toggle-collect=plovix_bench_tracked_frames \
    --callgrind-out-file="$out" "$bench" --callgrind-frames=$frames 2>"$build/callgrind.log" ||
    { echo "bench.sh: callgrind run failed, see $build/callgrind.log" >&2; exit 1; }
  exec python3 scripts/bench_report.py callgrind "$out" --frames $frames --json "${json:-bench-out/callgrind.json}"
fi

repetitions=5
min_time=0.5
quick_flag=()
if [ "$quick" -eq 1 ]; then
  repetitions=2
  min_time=0.05
  quick_flag=(--quick)
fi
raw=$build/benchmark-raw.json
"$bench" "${quick_flag[@]}" --benchmark_repetitions=$repetitions --benchmark_min_time=$min_time \
  --benchmark_out="$raw" --benchmark_out_format=json >"$build/benchmark-console.txt" 2>&1 ||
  { echo "bench.sh: plovix-bench failed, see $build/benchmark-console.txt" >&2; exit 1; }
exec python3 scripts/bench_report.py table "$raw" --library "$build/libplovixengine.so" \
  --json "${json:-bench-out/bench.json}"
