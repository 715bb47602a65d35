#!/usr/bin/env bash
# Browser benchmark of the lab remark list (RT50_LAB_REMARK_MAINT_LIST): the
# time from the click on "Lab &Remark" to its 2000 rows painted, beside a
# static HTML table of the same 2000 rows in the same browser page.
#
# Builds a throw-away SQLite database of 100,000 remarks, 2000 of them with
# short names "R00001".."R02000" inside the list's range "1".."zzzzzz", the
# others beginning with "0" (before it); serves it on a free port and runs
# tests/browser/bench_rt50.mjs against it.
#
#   WATRIX_BUILD  the build folder that holds watrix (default: build/)
#   BENCH_RUNS, BENCH_WARMUP  passed to the script (default 10 and 2)
set -euo pipefail

# shellcheck source=../tests/browser/serve_lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/../tests/browser/serve_lib.sh"

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
browser="$here/../tests/browser"
build="${WATRIX_BUILD:-$here/../build}"
build="$(cd "$build" && pwd)"
watrix="$build/watrix"

if [[ ! -x "$watrix" ]]; then
  echo "browser_rt50.sh: $watrix not found; build it first" >&2
  exit 2
fi
if [[ ! -d "$browser/node_modules/playwright-core" ]]; then
  (cd "$browser" && npm ci --no-audit --no-fund)
fi

work="$(mktemp -d "${TMPDIR:-/tmp}/watrix-bench-rt50.XXXXXX")"
cleanup() {
  stop_server
  rm -rf "$work"
}
trap cleanup EXIT

db="sqlite:$work/x.db"
csv="$work/tsrlbrmk.csv"
# 100,000 rows: 2000 in range (R00001..R02000), 98,000 starting with "0".
awk 'BEGIN {
  print "TSRLBRMK_IS_NUMBER,TSRLBRMK_ORG_ID,SHORT_NAME,DESCRIPTION_TEXT,D_USERID_CODE,D_LAST_UPDATE_TS"
  for (i = 1; i <= 100000; i++) {
    if (i <= 2000) name = sprintf("R%05d", i); else name = sprintf("0%05d", i - 2000);
    printf "%d,ZZZZZZZZ,%s,Remark %d,LOADER,2024-01-01 00:00:00\n", i, name, i
  }
}' >"$csv"

"$watrix" db init --db "$db" >/dev/null
"$watrix" db load --db "$db" TSRLBRMK "$csv" </dev/null >/dev/null

log="$work/serve.log"
start_server "$watrix" "$db" "$log" browser_rt50.sh

echo "browser_rt50.sh: $url, 100,000 remarks, 2000 in the list's range"
cd "$browser"
WATRIX_URL="$url" node bench_rt50.mjs
