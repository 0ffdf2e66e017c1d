#!/usr/bin/env bash
# scripts/check_load_alignment.sh on small libraries linked here with and without 16 KB pages.
# Usage: check_load_alignment_test.sh C_COMPILER
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
check=$here/../../scripts/check_load_alignment.sh
cc=${1:?give the C compiler}
source "$here/script_test_lib.sh"

echo 'int answer(void) { return 42; }' >"$work/a.c"
"$cc" -shared -fPIC "$work/a.c" -o "$work/paged16k.so" \
  -Wl,-z,max-page-size=16384 -Wl,-z,common-page-size=16384
"$cc" -shared -fPIC "$work/a.c" -o "$work/paged4k.so" -Wl,-z,max-page-size=4096
"$cc" -c "$work/a.c" -o "$work/object.o"
echo 'not elf' >"$work/text.txt"

expect "16 KB pages pass" 0 "aligned to 0x4000" "$check" "$work/paged16k.so" 0x4000
expect "4 KB pages fail" 1 "aligned to 0x1000.*expected 0x4000" "$check" "$work/paged4k.so" 0x4000
expect "a larger alignment than asked fails" 1 "expected 0x1000" "$check" "$work/paged16k.so" 0x1000
expect "an object file has no LOAD segment" 1 "no LOAD segment" "$check" "$work/object.o" 0x4000
expect "a text file is no ELF file" 2 "not an ELF file" "$check" "$work/text.txt" 0x4000
expect "a missing file" 2 "no such file" "$check" "$work/none.so" 0x4000
expect "one argument" 2 "give FILE and ALIGN" "$check" "$work/paged16k.so"
finish
