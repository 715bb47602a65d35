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
struct Connection {
  soci::session* sql;
  Dialect dialect;
  NativeReads* native = nullptr;
};

}  // namespace lk::store

#endif  // WATRIX_STORE_CONNECTION_H_
