#!/usr/bin/env bash
# Sets the machine up, builds, and serves WATRIX on the embedded default
# database (sqlite:watrix.db in the repository folder). Extra arguments go
# to `watrix serve` (for example --listen 127.0.0.1:9090).
set -euo pipefail
repo="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
export WATRIX_BUILD="${WATRIX_BUILD:-$repo/build}"
bash "$repo/scripts/setup.sh"
bash "$repo/scripts/build.sh"
cd "$repo"
exec "$WATRIX_BUILD/watrix" serve --db "sqlite:$repo/watrix.db" "$@"
