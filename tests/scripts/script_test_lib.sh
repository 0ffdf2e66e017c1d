# Shared by the script tests: run a command and check its exit status and what it printed.
fails=0
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# expect NAME STATUS PATTERN COMMAND...: COMMAND exits with STATUS and its output matches PATTERN
# (an extended regular expression; "" for any output).
expect() {
  local name=$1 want=$2 pattern=$3 got=0
  shift 3
  "$@" >"$work/out" 2>&1 || got=$?
  if [ "$got" -ne "$want" ] || { [ -n "$pattern" ] && ! grep -qE -- "$pattern" "$work/out"; }; then
    echo "FAIL $name: exit $got (want $want), output:" >&2
    sed 's/^/  /' "$work/out" >&2
    fails=$((fails + 1))
  else
    echo "ok   $name"
  fi
}

finish() {
  [ "$fails" -eq 0 ] || { echo "$fails case(s) failed" >&2; exit 1; }
}
