#!/usr/bin/env bash
# Sets everything up, builds the library, tools and tests, and runs every test.
# Usage: scripts/test.sh [--sanitize] [--werror]
#   --sanitize   build in build-asan with address and undefined-behaviour sanitizers
#   --werror     treat compiler warnings as errors
set -euo pipefail
cd "$(dirname "$0")/.."

build=build
sanitize=0
flags=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DPLOVIX_BUILD_TESTS=ON -DPLOVIX_BUILD_TOOLS=ON)
for a in "$@"; do
  case "$a" in
    --sanitize) build=build-asan; sanitize=1; flags+=(-DPLOVIX_SANITIZE=address,undefined) ;;
    --werror) flags+=(-DPLOVIX_WERROR=ON) ;;
    -h|--help) sed -n '2,5p' "$0"; exit 0 ;;
    *) echo "test.sh: unknown option $a" >&2; exit 2 ;;
  esac
done

scripts/setup.sh
cmake -S . -B "$build" "${flags[@]}" >/dev/null
cmake --build "$build" -j"$(nproc)"
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
ctest --test-dir "$build" --output-on-failure --no-tests=error -j"$(nproc)"

# What a person sees: the replay report renders in headless Chromium with its plots and no errors.
if [ "$sanitize" -eq 0 ]; then
  PLOVIX_REPLAY="$build/tools/replay/plovix-replay" scripts/check_report.sh
fi
