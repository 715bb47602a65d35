#!/usr/bin/env bash
# Creates a database with the demo data of data/*.csv, when it does not exist
# yet: `watrix db init`, then `watrix db load` of each file, parents first and
# TSMEISN (the next-number table) last.
#
#   scripts/demo_db.sh [URL [WATRIX]]
#
# URL defaults to sqlite:watrix.db in the repository folder, WATRIX to the
# program in $WATRIX_BUILD (default build/). A database that already exists
# is left alone: for sqlite:PATH, a file at PATH; for any other URL, a
# database in which the schema already stands (`watrix db dump` of TSMEISN
# succeeds). A new SQLite file whose load fails is removed again, so that the
# next run starts afresh.
set -euo pipefail

repo="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
url="${1:-sqlite:$repo/watrix.db}"
watrix="${2:-${WATRIX_BUILD:-$repo/build}/watrix}"
data="$repo/data"

say() { printf 'demo_db: %s\n' "$*"; }

if [[ ! -x "$watrix" ]]; then
  say "no program at $watrix; build it first (scripts/build.sh)" >&2
  exit 1
fi

# Load order: tables that others refer to come first; TSMEISN comes last.
order=(TSRUOM TSRLBRMK TSRBIOPT TSMSIC TSMFHU TSMGEOPA)

sqlite_file=""
if [[ "$url" == sqlite:* ]]; then
  sqlite_file="${url#sqlite:}"
  if [[ -e "$sqlite_file" ]]; then
    say "$sqlite_file exists; left as it is"
    exit 0
  fi
elif "$watrix" db dump --db "$url" TSMEISN >/dev/null 2>&1; then
  say "the database already has the schema; left as it is"
  exit 0
fi

cleanup() {
  local status=$?
  if ((status != 0)) && [[ -n "$sqlite_file" ]]; then
    rm -f -- "$sqlite_file" "$sqlite_file-journal" "$sqlite_file-wal" "$sqlite_file-shm"
    say "loading failed; removed $sqlite_file" >&2
  fi
  exit "$status"
}
trap cleanup EXIT

say "creating the schema"
"$watrix" db init --db "$url"

# The listed tables in their order, then any other file of data/ by name,
# then TSMEISN.
tables=()
for table in "${order[@]}"; do
  [[ -f "$data/$table.csv" ]] && tables+=("$table")
done
for file in "$data"/*.csv; do
  [[ -e "$file" ]] || continue
  table="$(basename "$file" .csv)"
  [[ "$table" == TSMEISN ]] && continue
  [[ " ${order[*]} " == *" $table "* ]] && continue
  tables+=("$table")
done
[[ -f "$data/TSMEISN.csv" ]] && tables+=(TSMEISN)

for table in "${tables[@]}"; do
  say "loading $table"
  "$watrix" db load --db "$url" "$table" "$data/$table.csv"
done

say "done: ${#tables[@]} tables loaded"
