#!/usr/bin/env bash
# Sets everything up, builds, and runs the replay tool on its built-in demo clip.
# Usage: scripts/demo.sh [OUTPUT_DIR]   (default: demo-out)
set -euo pipefail
cd "$(dirname "$0")/.."
out=${1:-demo-out}

scripts/setup.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DPLOVIX_BUILD_TOOLS=ON >/dev/null
cmake --build build -j"$(nproc)"
if [ -x build/tools/replay/plovix-replay ]; then
  build/tools/replay/plovix-replay --demo --out "$out"
  echo "Open $out/report.html in a browser to see what the tracker did."
else
  build/plovix-example
fi
