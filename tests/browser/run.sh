#!/usr/bin/env bash
# Runs the browser tests against a fresh `watrix serve` on a free port with a
# throw-away SQLite database.
#
#   WATRIX_BUILD  the build folder that holds watrix (default: ../../build)
#   WATRIX_SHOTS  where screenshots go (default: $WATRIX_BUILD/screenshots)
#
# Exits with the test runner's status.
set -euo pipefail

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

log="$work/serve.log"
"$build/watrix" serve --listen 127.0.0.1:0 --db "sqlite:$work/x.db" >"$log" 2>&1 &
server_pid=$!

# The server prints "WATRIX serving on http://HOST:PORT/" once it listens.
url=""
for _ in $(seq 100); do
  url="$(sed -n 's|.*WATRIX serving on \(http://[^ ]*\).*|\1|p' "$log" | head -n 1)"
  [[ -n "$url" ]] && break
  if ! kill -0 "$server_pid" 2>/dev/null; then
    echo "run.sh: watrix serve stopped before it listened:" >&2
    cat "$log" >&2
    exit 2
  fi
  sleep 0.1
done
if [[ -z "$url" ]]; then
  echo "run.sh: watrix serve printed no address within 10 s:" >&2
  cat "$log" >&2
  exit 2
fi

mkdir -p "$shots"
echo "run.sh: testing $url, screenshots in $shots"
status=0
WATRIX_URL="$url" WATRIX_SHOTS="$shots" node --test --test-concurrency=1 ./*.test.mjs || status=$?
if [[ $status -ne 0 ]]; then
  echo "run.sh: server log:" >&2
  cat "$log" >&2
fi
exit "$status"
