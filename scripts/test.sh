#!/usr/bin/env bash
# Sets the machine up, builds, and runs every test: unit, host, HTTP and
# browser tests, under ctest. Ends with ctest's summary line.
set -euo pipefail
repo="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
export WATRIX_BUILD="${WATRIX_BUILD:-$repo/build}"
bash "$repo/scripts/setup.sh"
bash "$repo/scripts/build.sh"
cd "$WATRIX_BUILD"
ctest --output-on-failure -j "$(nproc)" --timeout 600
