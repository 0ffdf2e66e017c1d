#!/usr/bin/env bash
# Builds the library, installs it into a temporary prefix and builds outside programs against the
# installed package the ways a host's build would: CMake's find_package, pkg-config with cc, and the
# example host in ISO C99. Runs all of them; any failure fails the script.
# Usage: scripts/check-install.sh [--keep]
#   --keep   keep the temporary prefix and builds, and print where they are
set -euo pipefail
cd "$(dirname "$0")/.."

keep=0
for a in "$@"; do
  case "$a" in
    --keep) keep=1 ;;
    -h|--help) sed -n '2,6p' "$0"; exit 0 ;;
    *) echo "check-install.sh: unknown option $a" >&2; exit 2 ;;
  esac
done

scripts/setup.sh
work=$(mktemp -d "${TMPDIR:-/tmp}/plovix-install.XXXXXX")
if [ "$keep" -eq 1 ]; then
  trap 'echo "check-install: kept $work"' EXIT
else
  trap 'rm -rf "$work"' EXIT
fi
prefix=$work/prefix
c_flags=(-std=c99 -pedantic -Wall -Wextra -Werror)

say() { echo "check-install: $*"; }
die() { echo "check-install: $*" >&2; exit 1; }

# Runs a command quietly and shows its output only when it fails.
quiet() {
  local log=$work/step.log
  "$@" >"$log" 2>&1 || { cat "$log" >&2; die "failed: $*"; }
}

say "building and installing into $prefix"
quiet cmake -S . -B "$work/build" -DCMAKE_BUILD_TYPE=Release -DPLOVIX_WERROR=ON \
  -DPLOVIX_BUILD_TESTS=OFF -DPLOVIX_BUILD_TOOLS=OFF
quiet cmake --build "$work/build" -j2
quiet cmake --install "$work/build" --prefix "$prefix"

export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
version=$(pkg-config --modversion plovixengine) || die "pkg-config does not find plovixengine.pc"
lib=$prefix/lib/libplovixengine.so
for f in include/plovixengine.h lib/libplovixengine.so "lib/libplovixengine.so.${version%%.*}" \
  "lib/libplovixengine.so.$version" lib/cmake/plovixengine/plovixengineConfig.cmake \
  lib/cmake/plovixengine/plovixengineConfigVersion.cmake; do
  [ -e "$prefix/$f" ] || die "$f is missing from the install tree"
done
stray=$(cd "$prefix" && find . -name '*.a' -o -path ./bin -o -name '*gtest*' -o -name '*replay*')
[ -z "$stray" ] || die "installed but not meant to be: $stray"
soname=$(readelf -d "$lib" | sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p')
[ "$soname" = "libplovixengine.so.${version%%.*}" ] || die "SONAME $soname does not follow version $version"
needed=$(readelf -d "$lib" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' |
  grep -v -E '^(libstdc\+\+|libm|libgcc_s|libc|libpthread|liblog)\.so' || true)
[ -z "$needed" ] || die "the library needs more than the C/C++ runtime and pthreads: $needed"

read -r -a pc_cflags <<<"$(pkg-config --cflags plovixengine)"
read -r -a pc_libs <<<"$(pkg-config --libs plovixengine)"
rpath=-Wl,-rpath,$(pkg-config --variable=libdir plovixengine)

say "compiling each installed subsystem header on its own (C++17)"
while IFS= read -r header; do
  echo "#include <$header>" | c++ -std=c++17 -Wall -Wextra -Werror -x c++ -fsyntax-only "${pc_cflags[@]}" - ||
    die "$header does not compile from the install tree"
done < <(cd "$prefix/include" && find plovixengine -name '*.h' | sort)

# Every program must load the installed library, not one from the build tree.
run() {
  local loaded
  loaded=$(ldd "$1" | awk '/libplovixengine/ { print $3 }')
  if [ -z "$loaded" ] || [ "$(readlink -f "$loaded")" != "$(readlink -f "$lib")" ]; then
    die "$(basename "$1") loads '$loaded' instead of the installed $lib"
  fi
  "$@" || die "$(basename "$1") failed"
}

say "find_package(plovixengine $version EXACT CONFIG)"
quiet cmake -S examples/consumer -B "$work/consumer" -DCMAKE_PREFIX_PATH="$prefix" \
  -DPLOVIX_REQUIRED_VERSION="$version"
quiet cmake --build "$work/consumer" -j2
run "$work/consumer/consumer"
run "$work/consumer/consumer_internals"

say "pkg-config --cflags --libs plovixengine with cc ${c_flags[*]}"
cc "${c_flags[@]}" "${pc_cflags[@]}" examples/consumer/consumer.c -o "$work/consumer-pc" "${pc_libs[@]}" "$rpath" ||
  die "examples/consumer/consumer.c does not build with pkg-config"
run "$work/consumer-pc"

say "examples/host_example.c"
cc "${c_flags[@]}" "${pc_cflags[@]}" examples/host_example.c -o "$work/host_example" "${pc_libs[@]}" "$rpath" ||
  die "examples/host_example.c does not build with pkg-config"
run "$work/host_example"
say "ok: libplovixengine $version installs and links both ways"
