#!/usr/bin/env bash
# Installs what building and testing need on a fresh Debian machine (run as root, or with sudo).
# Usage: scripts/setup.sh [extra Debian packages...]
set -euo pipefail

packages=(cmake g++ make libgtest-dev libpng-dev pkg-config python3 "$@")
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "setup: installing ${missing[*]}"
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -q
  $SUDO apt-get install -y -q "${missing[@]}"
fi
