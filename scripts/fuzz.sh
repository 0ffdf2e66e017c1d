#!/usr/bin/env bash
# Builds the libFuzzer targets with clang in build-fuzz and runs each on a copy of its seed corpus
# for a bounded time. Prints the executions per target; exits non-zero on any finding (crash, leak,
# timeout, sanitizer report, broken invariant), whose input is kept in build-fuzz/findings/<target>/.
# Usage: scripts/fuzz.sh [--time SECONDS] [TARGET...]
#   --time SECONDS   run each target this long (default 60)
#   TARGET           stream, segmentation, object_size, mean_shift, ncc (default: all)
set -euo pipefail
cd "$(dirname "$0")/.."

all_targets=(stream segmentation object_size mean_shift ncc)
seconds=60
targets=()
while [ $# -gt 0 ]; do
  case "$1" in
    --time)
      if [ $# -lt 2 ] || ! [[ "$2" =~ ^[1-9][0-9]*$ ]]; then
        echo "fuzz.sh: --time needs a whole number of seconds" >&2
        exit 2
      fi
      seconds=$2; shift 2 ;;
    -h|--help) sed -n '2,7p' "$0" | sed 's/^# \{0,1\}//'; exit 0 ;;
    -*) echo "fuzz.sh: unknown option $1" >&2; exit 2 ;;
    *)
      if [[ " ${all_targets[*]} " != *" $1 "* ]]; then
        echo "fuzz.sh: unknown target $1 (known: ${all_targets[*]})" >&2
        exit 2
      fi
      targets+=("$1"); shift ;;
  esac
done
[ ${#targets[@]} -gt 0 ] || targets=("${all_targets[@]}")

scripts/setup.sh clang libclang-rt-14-dev
build=build-fuzz
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
  -DPLOVIX_BUILD_FUZZERS=ON -DPLOVIX_BUILD_TESTS=OFF -DPLOVIX_BUILD_TOOLS=OFF -DPLOVIX_WERROR=ON >/dev/null
cmake --build "$build" -j2 --target "${targets[@]/#/fuzz_}"

# A single input taking this long is a hang: the stream fuzzer's inputs stay well under a second.
per_input_timeout=25
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
failed=()
for t in "${targets[@]}"; do
  work="$build/run/$t"
  findings="$build/findings/$t"
  rm -rf "$work"
  mkdir -p "$work" "$findings"
  cp fuzz/corpus/"$t"/* "$work"/
  log="$build/run/$t.log"
  status=0
  "$build/fuzz/fuzz_$t" -max_total_time="$seconds" -timeout="$per_input_timeout" -max_len=16384 \
    -print_final_stats=1 -artifact_prefix="$findings/" "$work" >"$log" 2>&1 || status=$?
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  if [ "$status" -ne 0 ]; then
    echo "fuzz $t: FINDING (exit $status) after ${runs:-?} executions; log $log, input in $findings/"
    grep -m3 -E "^==[0-9]+==ERROR|runtime error|invariant violated|ALARM|leak" "$log" || true
    failed+=("$t")
  else
    echo "fuzz $t: ${runs:-?} executions in $seconds s, no finding"
  fi
done
if [ ${#failed[@]} -gt 0 ]; then
  echo "fuzz.sh: findings in ${failed[*]}" >&2
  exit 1
fi
