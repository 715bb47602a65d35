#!/usr/bin/env bash
# Runs the browser tests against a fresh `watrix serve` on a free port with a
# throw-away SQLite database.
#
#   WATRIX_BUILD  the build folder that holds watrix (default: ../../build)
#   WATRIX_SHOTS  where screenshots go (default: $WATRIX_BUILD/screenshots)
#
# Exits with the test runner's status.
set -euo pipefail

# shellcheck source=serve_lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/serve_lib.sh"

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
build="${WATRIX_BUILD:-$here/../../build}"
build="$(cd "$build" && pwd)"
shots="${WATRIX_SHOTS:-$build/screenshots}"

if [[ ! -x "$build/watrix" ]]; then
  echo "run.sh: $build/watrix not found; build it first" >&2
  exit 2
fi

cd "$here"
if [[ ! -d node_modules/playwright-core ]]; then
  npm ci --no-audit --no-fund
fi

work="$(mktemp -d "${TMPDIR:-/tmp}/watrix-browser.XXXXXX")"
cleanup() {
  stop_server
  rm -rf "$work"
}
trap cleanup EXIT

db="sqlite:$work/x.db"
log="$work/serve.log"
start_server "$build/watrix" "$db" "$log" run.sh

mkdir -p "$shots"
echo "run.sh: testing $url, screenshots in $shots"
status=0
WATRIX_URL="$url" WATRIX_SHOTS="$shots" node --test --test-concurrency=1 ./*.test.mjs || status=$?
if [[ $status -ne 0 ]]; then
  echo "run.sh: server log:" >&2
  cat "$log" >&2
fi
exit "$status"
