#!/usr/bin/env bash
# Configures and builds WATRIX into build/ (or $WATRIX_BUILD): the module
# liblkbase.so, the program watrix, the tests and the benchmarks.
set -euo pipefail
repo="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${WATRIX_BUILD:-$repo/build}"
cmake -S "$repo" -B "$build" -DCMAKE_BUILD_TYPE="${CMAKE_BUILD_TYPE:-RelWithDebInfo}" >/dev/null
cmake --build "$build" -j "$(nproc)"
