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
#   WATRIX_BUILD  the build folder that holds watrix (default: /work/main/build)
#   BENCH_RUNS, BENCH_WARMUP  passed to the script (default 10 and 2)
set -euo pipefail

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
browser="$here/../tests/browser"
build="${WATRIX_BUILD:-/work/main/build}"
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
server_pid=""
cleanup() {
  if [[ -n "$server_pid" ]] && kill -0 "$server_pid" 2>/dev/null; then
    kill -TERM "$server_pid" 2>/dev/null || true
    for _ in $(seq 50); do
      kill -0 "$server_pid" 2>/dev/null || break
      sleep 0.1
    done
    kill -KILL "$server_pid" 2>/dev/null || true
    wait "$server_pid" 2>/dev/null || true
  fi
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
"$watrix" serve --listen 127.0.0.1:0 --db "$db" >"$log" 2>&1 &
server_pid=$!

# The server prints "WATRIX serving on http://HOST:PORT/" once it listens.
url=""
for _ in $(seq 100); do
  url="$(sed -n 's|.*WATRIX serving on \(http://[^ ]*\).*|\1|p' "$log" | head -n 1)"
  [[ -n "$url" ]] && break
  if ! kill -0 "$server_pid" 2>/dev/null; then
    echo "browser_rt50.sh: watrix serve stopped before it listened:" >&2
    cat "$log" >&2
    exit 2
  fi
  sleep 0.1
done
if [[ -z "$url" ]]; then
  echo "browser_rt50.sh: watrix serve printed no address within 10 s:" >&2
  cat "$log" >&2
  exit 2
fi

echo "browser_rt50.sh: $url, 100,000 remarks, 2000 in the list's range"
cd "$browser"
WATRIX_URL="$url" node bench_rt50.mjs
