#!/usr/bin/env bash
# Runs the browser tests against a fresh `watrix serve` on a free port, on a
# throw-away database of the backend given that holds the demo data
# (scripts/demo_db.sh: `watrix db init`, then `watrix db load` of data/).
#
#   run.sh [sqlite|postgresql] [FILE.test.mjs ...]   (default sqlite, every test file)
#
#   sqlite      a database file in a scratch folder of its own
#   postgresql  a private PostgreSQL cluster on a free loopback port, started
#               by pg_cluster_hold (tests/pg), stopped and removed at the end
#
#   WATRIX_BUILD     the build folder that holds watrix (default: ../../build)
#   WATRIX_SHOTS     where screenshots go (default: $WATRIX_BUILD/screenshots/BACKEND)
#   WATRIX_CHROMIUM  the Chromium to drive (default: chromium on the PATH)
#   WATRIX_PG_HOLD   the pg_cluster_hold program (default: $WATRIX_BUILD/tests/pg/pg_cluster_hold)
#
# The tests see WATRIX_DB (the database's URL) and WATRIX_BIN (the watrix
# program), so that one may load rows of its own with `watrix db load`.
#
# Every run has its own scratch folder, server port, cluster and screenshot
# folder, so that runs of both backends may go at once. A missing Node,
# Chromium or program is a failure with its name, never a skip. Exits with
# the test runner's status, or 2 when the tests could not start.
set -euo pipefail

# shellcheck source=serve_lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/serve_lib.sh"

fail() {
  echo "run.sh: $*" >&2
  exit 2
}

backend="${1:-sqlite}"
files=("${@:2}")
case "$backend" in
  sqlite | postgresql) ;;
  *) fail "unknown backend '$backend'; usage: run.sh [sqlite|postgresql]" ;;
esac

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
repo="$(cd "$here/../.." && pwd)"
build="${WATRIX_BUILD:-$here/../../build}"
[[ -d "$build" ]] || fail "build folder $build not found; build first"
build="$(cd "$build" && pwd)"
shots="${WATRIX_SHOTS:-$build/screenshots/$backend}"
pg_hold="${WATRIX_PG_HOLD:-$build/tests/pg/pg_cluster_hold}"

[[ -x "$build/watrix" ]] || fail "$build/watrix not found; build it first"
command -v node >/dev/null ||
  fail "node not found on the PATH: the browser tests need Node.js (scripts/setup.sh installs it)"
chromium="${WATRIX_CHROMIUM:-$(command -v chromium || true)}"
[[ -n "$chromium" && -x "$chromium" ]] ||
  fail "chromium not found${WATRIX_CHROMIUM:+ at $WATRIX_CHROMIUM}: the browser tests need it" \
    "(scripts/setup.sh installs it; WATRIX_CHROMIUM names another)"
if [[ "$backend" == postgresql && ! -x "$pg_hold" ]]; then
  fail "$pg_hold not found; build it first (target pg_cluster_hold)"
fi

cd "$here"
[[ ${#files[@]} -gt 0 ]] || files=(./*.test.mjs)
# The npm packages, installed once; the lock keeps two runs from installing
# into the same folder at once.
exec 9>"$build/.browser-npm.lock"
flock 9
if [[ ! -d node_modules/playwright-core ]]; then
  command -v npm >/dev/null ||
    fail "npm not found on the PATH, and node_modules/ lacks playwright-core (scripts/setup.sh installs both)"
  npm ci --no-audit --no-fund || fail "npm ci failed"
fi
flock -u 9
exec 9>&-

work="$(mktemp -d "${TMPDIR:-/tmp}/watrix-browser-$backend.XXXXXX")"
pg_pid=""
cleanup() {
  stop_server
  if [[ -n "$pg_pid" ]]; then
    # pg_cluster_hold stops the cluster and removes it before it exits.
    kill -TERM "$pg_pid" 2>/dev/null || true
    wait "$pg_pid" 2>/dev/null || true
  fi
  rm -rf "$work"
}
trap cleanup EXIT

if [[ "$backend" == postgresql ]]; then
  : >"$work/pg.url"
  "$pg_hold" >"$work/pg.url" 2>"$work/pg.log" &
  pg_pid=$!
  db=""
  for _ in $(seq 600); do
    # The URL counts once its line is whole.
    if [[ "$(wc -l <"$work/pg.url")" -ge 1 ]]; then
      db="$(head -n 1 "$work/pg.url")"
      break
    fi
    if ! kill -0 "$pg_pid" 2>/dev/null; then
      pg_pid=""
      echo "run.sh: the PostgreSQL test cluster did not start:" >&2
      cat "$work/pg.log" >&2
      exit 2
    fi
    sleep 0.1
  done
  [[ -n "$db" ]] || fail "the PostgreSQL test cluster gave no URL within 60 s: $(cat "$work/pg.log")"
else
  db="sqlite:$work/x.db"
fi

echo "run.sh: loading the demo data into $db"
"$repo/scripts/demo_db.sh" "$db" "$build/watrix" >"$work/load.log" 2>&1 || {
  echo "run.sh: loading the demo data failed:" >&2
  cat "$work/load.log" >&2
  exit 2
}

log="$work/serve.log"
start_server "$build/watrix" "$db" "$log" run.sh

mkdir -p "$shots"
echo "run.sh: testing $url on $backend, screenshots in $shots"
status=0
WATRIX_URL="$url" WATRIX_SHOTS="$shots" WATRIX_CHROMIUM="$chromium" \
  WATRIX_DB="$db" WATRIX_BIN="$build/watrix" \
  node --test --test-concurrency=1 "${files[@]}" || status=$?
if [[ $status -ne 0 ]]; then
  echo "run.sh: server log:" >&2
  cat "$log" >&2
fi
exit "$status"
