// A session's database connection as the module's statements and the
// cascade entries see it: the SOCI session and the dialect it speaks.
//
// SessionPort.store (behind HandleA) points at one of these. The host owns
// it (store/database.h) and keeps it valid for the life of the session; after
// a lost connection the host may replace `sql` between events, never during
// one.
//
// Dialect differences live in the store alone: timestamp conversion, FOR
// UPDATE (SQLite serialises writers instead: the host begins its
// transactions with BEGIN IMMEDIATE), the row id of an update where current
// of a cursor (SQLite rowid, PostgreSQL ctid), and comparison (fixed char
// columns compare blank padded, everything sorts by byte).
#ifndef WATRIX_STORE_CONNECTION_H_
#define WATRIX_STORE_CONNECTION_H_

namespace soci {
class session;
}

namespace lk::store {

enum class Dialect { kSqlite, kPostgres };

class NativeReads;

// `native`, where the owner of the connection gives one, runs the reads on
// the backend's own C API with statements kept from event to event
// (store/native_read.h); it belongs to `sql` and goes with it.
//
// `defer_pending` (SQLite): the open transaction has yet to defer its
// foreign key checks to the commit. The owner sets it when it begins a
// transaction; BeforeWrites does the deferring.
struct Connection {
  soci::session* sql;
  Dialect dialect;
  NativeReads* native = nullptr;
  mutable bool defer_pending = false;
};

// Runs what a transaction owes before its first statement through SOCI
// (every write, every read for update, every cascade): on SQLite,
// PRAGMA defer_foreign_keys = ON, when `c.defer_pending`. The pragma waits
// for that first statement because SQLite prepares every kept statement of
// the connection again after it; an event that only reads never runs it.
// Throws what SOCI throws.
void BeforeWrites(const Connection& c);

}  // namespace lk::store

#endif  // WATRIX_STORE_CONNECTION_H_
