#!/usr/bin/env bash
# Builds plovix-soak (optimised, no sanitizer) and runs it: a long scripted session through the
# engine that fails on growing memory, a slow process_plovix call or a phase that ends wrongly.
# Usage: scripts/soak.sh [--frames N]   (default 200000, the full soak; at least 2100)
set -euo pipefail
cd "$(dirname "$0")/.."

frames=200000
while [ $# -gt 0 ]; do
  case "$1" in
    --frames)
      [ $# -ge 2 ] || { echo "soak.sh: --frames needs a number" >&2; exit 2; }
      frames=$2; shift 2 ;;
    --frames=*) frames=${1#*=}; shift ;;
    -h|--help) sed -n '2,4p' "$0"; exit 0 ;;
    *) echo "soak.sh: unknown option $1" >&2; exit 2 ;;
  esac
done
[[ "$frames" =~ ^[0-9]+$ ]] || { echo "soak.sh: --frames needs a whole number, not '$frames'" >&2; exit 2; }

scripts/setup.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DPLOVIX_SANITIZE= -DPLOVIX_BUILD_TESTS=ON -DPLOVIX_BUILD_TOOLS=ON >/dev/null
cmake --build build -j"$(nproc)" --target plovix-soak
build/tools/soak/plovix-soak --frames "$frames"
