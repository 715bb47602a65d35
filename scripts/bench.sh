#!/usr/bin/env bash
# Builds and runs every benchmark, then says which speed and memory goals
# were met. Each benchmark prints its own figures beside a baseline measured
# in the same run, checks its answers, and ends with one line per goal it
# measures:
#   goal NAME: VALUE (at most LIMIT)
# This script repeats those lines, in order, and ends with
#   bench: all goals met        or        bench: N goals missed
# (a benchmark that fails or prints no goal counts as a missed goal).
#
# Not part of the test command: figures on a shared machine vary, and a
# test never times anything. WATRIX_BUILD is the build folder (build/);
# BENCH_ONLY=NAME runs one benchmark (its program or script name).
set -uo pipefail
repo="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
export WATRIX_BUILD="${WATRIX_BUILD:-$repo/build}"
bash "$repo/scripts/build.sh" || exit 1

log="$(mktemp)"
trap 'rm -f "$log"' EXIT
missed=0

# Runs one benchmark; its goal lines go to the log.
run() {
  local name="$1"
  shift
  [[ -n "${BENCH_ONLY:-}" && "$BENCH_ONLY" != "$name" ]] && return
  echo "== $name" >&2
  local out
  out="$(mktemp)"
  if ! "$@" 2>&1 | tee "$out" >&2; then
    echo "goal $name: failed (at most 0)" >>"$log"
  elif ! grep -q '^goal ' "$out"; then
    echo "goal $name: no goal printed (at most 0)" >>"$log"
  fi
  grep '^goal ' "$out" >>"$log" || true
  rm -f "$out"
}

run lab_remark_bench "$WATRIX_BUILD/lab_remark_bench"
run geologic_unit_bench "$WATRIX_BUILD/geologic_unit_bench"
run list_scale_bench "$WATRIX_BUILD/list_scale_bench"
run permitted_value_bench "$WATRIX_BUILD/permitted_value_bench"
run http_bench "$WATRIX_BUILD/http_bench"
run session_memory_bench "$WATRIX_BUILD/session_memory_bench"
run browser_rt50 bash "$repo/bench/browser_rt50.sh"

echo
while IFS= read -r line; do
  echo "$line"
  # "goal NAME: VALUE (at most LIMIT)": missed unless VALUE is a number
  # not above LIMIT.
  value="$(sed -E 's/^goal [^:]+: ([^ ]+).*/\1/; s/x$//' <<<"$line")"
  limit="$(sed -E 's/.*\(at most ([^)]+)\)$/\1/; s/x$//' <<<"$line")"
  if ! awk -v v="$value" -v l="$limit" 'BEGIN { exit !(v ~ /^[0-9.]+$/ && v + 0 <= l + 0) }'; then
    missed=$((missed + 1))
  fi
done <"$log"
if [[ "$missed" -eq 0 ]]; then
  echo "bench: all goals met"
else
  echo "bench: $missed goals missed"
fi
