#!/usr/bin/env bash
# Sets everything up, builds the library, tools and tests, and runs every test.
# Usage: scripts/test.sh [--sanitize | --tsan] [--werror]
#   --sanitize   build in build-asan with address and undefined-behaviour sanitizers
#   --tsan       build in build-tsan with the thread sanitizer
#   --werror     treat compiler warnings as errors
set -euo pipefail
cd "$(dirname "$0")/.."

build=build
sanitize=0
flags=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DPLOVIX_BUILD_TESTS=ON -DPLOVIX_BUILD_TOOLS=ON)
for a in "$@"; do
  case "$a" in
    --sanitize) build=build-asan; sanitize=$((sanitize + 1)); flags+=(-DPLOVIX_SANITIZE=address,undefined) ;;
    --tsan) build=build-tsan; sanitize=$((sanitize + 1)); flags+=(-DPLOVIX_SANITIZE=thread) ;;
    --werror) flags+=(-DPLOVIX_WERROR=ON) ;;
    -h|--help) sed -n '2,6p' "$0"; exit 0 ;;
    *) echo "test.sh: unknown option $a" >&2; exit 2 ;;
  esac
done
if [ "$sanitize" -gt 1 ]; then
  echo "test.sh: --sanitize and --tsan cannot be combined" >&2
  exit 2
fi

scripts/setup.sh
cmake -S . -B "$build" "${flags[@]}" >/dev/null
cmake --build "$build" -j"$(nproc)"
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
export TSAN_OPTIONS=${TSAN_OPTIONS:-halt_on_error=1:second_deadlock_stack=1}
ctest --test-dir "$build" --output-on-failure --no-tests=error -j"$(nproc)"

# What a person sees: the replay report renders in headless Chromium with its plots and no errors.
if [ "$sanitize" -eq 0 ]; then
  PLOVIX_REPLAY="$build/tools/replay/plovix-replay" scripts/check_report.sh
fi
