#!/usr/bin/env bash
# Checks that every LOAD segment of an ELF file has the given alignment, e.g. 0x4000 for a library
# that must load on devices with 16 KB pages.
# Usage: scripts/check_load_alignment.sh FILE ALIGN   (ALIGN as readelf prints it: 0x4000)
set -euo pipefail

case "${1:-}" in -h|--help) sed -n '4p' "$0" | sed 's/^# //'; exit 0 ;; esac
[ $# -eq 2 ] || { echo "check_load_alignment: give FILE and ALIGN (see --help)" >&2; exit 2; }
file=$1
want=$2
[ -f "$file" ] || { echo "check_load_alignment: $file: no such file" >&2; exit 2; }

# -W keeps each program header on one line, with the alignment last.
headers=$(readelf -lW "$file" 2>&1) || { echo "check_load_alignment: $file: not an ELF file" >&2; exit 2; }
aligns=$(awk '$1 == "LOAD" { print $NF }' <<<"$headers")
if [ -z "$aligns" ]; then
  echo "check_load_alignment: FAIL: $file has no LOAD segment" >&2
  exit 1
fi
if grep -vqx -- "$want" <<<"$aligns"; then
  echo "check_load_alignment: FAIL: $file has LOAD segments aligned to" $aligns"; expected $want" >&2
  exit 1
fi
echo "check_load_alignment: every LOAD segment of $file is aligned to $want"
