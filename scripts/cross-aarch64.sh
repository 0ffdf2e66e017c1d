#!/usr/bin/env bash
# Proves the engine on 64-bit ARM: cross-builds the library, tests and replay tool with Debian's
# aarch64 toolchain, runs every test under qemu, checks that the library is laid out for 16 KB
# pages and holds no fused multiply-add, and replays sessions on x86-64 and under qemu, which must
# give identical results.
# Usage: scripts/cross-aarch64.sh [--werror] [--build-dir DIR]
#   --werror          treat compiler warnings as errors
#   --build-dir DIR   the aarch64 build (default build-aarch64); the native one is build/
set -euo pipefail
cd "$(dirname "$0")/.."

build=build-aarch64
flags=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DPLOVIX_BUILD_TESTS=ON -DPLOVIX_BUILD_TOOLS=ON)
while [ $# -gt 0 ]; do
  case "$1" in
    --werror) flags+=(-DPLOVIX_WERROR=ON) ;;
    --build-dir) [ $# -ge 2 ] || { echo "cross-aarch64: --build-dir needs a value" >&2; exit 2; }
      build=$2; shift ;;
    -h|--help) sed -n '6,8p' "$0" | sed 's/^# \{0,1\}//'; exit 0 ;;
    *) echo "cross-aarch64: unknown option $1" >&2; exit 2 ;;
  esac
  shift
done
case "$build" in /*) ;; *) build=$PWD/$build ;; esac
jobs=$(nproc)
toolchain=$PWD/cmake/toolchains/aarch64-linux-gnu.cmake
gtest_prefix=$build/_deps/googletest
lib=$build/libplovixengine.so

# The cross compiler, qemu-user, GoogleTest's sources, and the arm64 runtime and libpng through
# Debian multiarch.
install_packages() {
  if ! dpkg --print-foreign-architectures | grep -qx arm64; then
    echo "cross-aarch64: adding the arm64 architecture"
    if [ "$(id -u)" -ne 0 ]; then sudo dpkg --add-architecture arm64; else dpkg --add-architecture arm64; fi
  fi
  scripts/setup.sh g++-aarch64-linux-gnu qemu-user googletest libstdc++6:arm64 libpng-dev:arm64
}

# GoogleTest from Debian's sources, built with the cross compiler and installed into the build.
build_googletest() {
  [ -f "$gtest_prefix/lib/cmake/GTest/GTestConfig.cmake" ] && return 0
  cmake -S /usr/src/googletest -B "$build/_deps/googletest-build" -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
    -DCMAKE_BUILD_TYPE=Release -DBUILD_GMOCK=OFF -DCMAKE_INSTALL_PREFIX="$gtest_prefix" >/dev/null
  cmake --build "$build/_deps/googletest-build" -j"$jobs" >/dev/null
  cmake --install "$build/_deps/googletest-build" >/dev/null
}

# Compilers fuse a * b + c on arm64 unless told not to, which changes results: no scalar
# (fmadd, fmsub, fnmadd, fnmsub) nor vector (fmla, fmls) fused instruction may appear.
check_no_fused_multiply_add() {
  local fused
  fused=$(aarch64-linux-gnu-objdump -d "$lib" | grep -cE '\s(fn?m(add|sub)|fml[as])\s' || true)
  if [ "$fused" -ne 0 ]; then
    echo "cross-aarch64: FAIL: $lib has $fused fused multiply-add instructions" >&2
    return 1
  fi
  echo "cross-aarch64: no fused multiply-add in $lib"
}

install_packages
build_googletest
cmake -S . -B "$build" -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_PREFIX_PATH="$gtest_prefix" \
  "${flags[@]}" >/dev/null
cmake --build "$build" -j"$jobs"
scripts/check_load_alignment.sh "$lib" 0x4000
check_no_fused_multiply_add
ctest --test-dir "$build" --output-on-failure --no-tests=error -j"$jobs"

# The reference: the same tool built for this machine.
cmake -S . -B build >/dev/null
cmake --build build -j"$jobs" --target plovix-replay
scripts/compare_replays.sh --emulator qemu-aarch64 build/tools/replay/plovix-replay \
  "$build/tools/replay/plovix-replay"
