#!/usr/bin/env bash
# Sets the machine up, builds, and serves WATRIX on the embedded default
# database (sqlite:watrix.db in the repository folder), which the first run
# fills with the demo data of data/ (scripts/demo_db.sh). Extra arguments go
# to `watrix serve` (for example --listen 127.0.0.1:9090).
set -euo pipefail
repo="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
export WATRIX_BUILD="${WATRIX_BUILD:-$repo/build}"
bash "$repo/scripts/setup.sh"
bash "$repo/scripts/build.sh"
cd "$repo"
# A first run gets the demo data; an existing watrix.db is served as it is.
if [[ ! -e "$repo/watrix.db" ]]; then
  bash "$repo/scripts/demo_db.sh" "sqlite:$repo/watrix.db" "$WATRIX_BUILD/watrix"
fi
exec "$WATRIX_BUILD/watrix" serve --db "sqlite:$repo/watrix.db" "$@"
