#!/usr/bin/env bash
# Prepares a Debian 12 machine to build and test WATRIX: the compiler and
# libraries, SQLite and PostgreSQL, Chromium and Node for the browser tests,
# and the browser tests' npm packages.
#
# Run as root. Safe to run again: when every package is already installed it
# skips apt altogether, and it reinstalls the npm packages only when their
# lock file has changed.
#
# An existing Node is left alone: Debian's nodejs and npm are installed only
# when there is no `node` at all.
set -euo pipefail

repo="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
export DEBIAN_FRONTEND=noninteractive

packages=(
  build-essential cmake g++ pkg-config
  libgtest-dev libgmock-dev libbenchmark-dev
  libcpp-httplib-dev nlohmann-json3-dev
  libsoci-dev libsqlite3-dev sqlite3 libpq-dev postgresql
  chromium
)
if ! command -v node >/dev/null 2>&1; then
  packages+=(nodejs npm)
fi

say() { printf 'setup: %s\n' "$*"; }

if [[ $(id -u) -ne 0 ]]; then
  say "run this as root (it installs Debian packages)" >&2
  exit 1
fi

# Whether a package is installed, per dpkg.
installed() {
  [[ "$(dpkg-query -W -f='${Status}' "$1" 2>/dev/null || true)" == "install ok installed" ]]
}

missing=()
for p in "${packages[@]}"; do
  installed "$p" || missing+=("$p")
done

if ((${#missing[@]} == 0)); then
  say "all Debian packages present"
else
  say "installing: ${missing[*]}"
  apt-get update
  # Install only what the archive offers; name the rest instead of failing
  # halfway through.
  available=()
  for p in "${missing[@]}"; do
    candidate="$(apt-cache policy "$p" 2>/dev/null | sed -n 's/^ *Candidate: //p')"
    if [[ -n "$candidate" && "$candidate" != "(none)" ]]; then
      available+=("$p")
    else
      say "not in the package archive: $p" >&2
    fi
  done
  if ((${#available[@]} > 0)); then
    apt-get install -y --no-install-recommends "${available[@]}"
  fi
  if ((${#available[@]} < ${#missing[@]})); then
    say "some packages could not be installed; see above" >&2
    exit 1
  fi
fi

# Node and npm for the browser tests.
if ! command -v npm >/dev/null 2>&1; then
  if installed nodejs && ! dpkg-query -W -f='${Version}' nodejs | grep -qi nodesource; then
    say "installing Debian's npm for Debian's node"
    apt-get install -y --no-install-recommends npm
  else
    say "node is installed without npm and not from Debian; install npm for it" >&2
    exit 1
  fi
fi
node_major="$(node -p 'process.versions.node.split(".")[0]')"
if ((node_major < 18)); then
  say "node $(node --version) is too old for the browser tests (18 or later)" >&2
  exit 1
fi

if [[ ! -x /usr/bin/chromium ]]; then
  say "/usr/bin/chromium is missing after install" >&2
  exit 1
fi

# The browser tests' packages, pinned by package-lock.json. npm records what
# it installed in node_modules/.package-lock.json; when that is newer than
# the lock file, the install is current.
browser="$repo/tests/browser"
if [[ -f "$browser/node_modules/.package-lock.json" &&
      "$browser/node_modules/.package-lock.json" -nt "$browser/package-lock.json" ]]; then
  say "browser test packages up to date"
else
  say "installing browser test packages"
  (cd "$browser" && npm ci --no-audit --no-fund)
fi

say "done"
