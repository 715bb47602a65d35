// The read side of the statement frame on the backends' own C APIs: a
// select into and a list's cursor, each statement prepared once per
// connection and kept for the next event (SQLite: sqlite3_prepare_v3 with
// its :name parameters as they stand; PostgreSQL: PQprepare with the names
// renumbered $1, $2, ... one per distinct name, then PQexecPrepared).
// Values cross as the frame's contract in store/statement.h says, exactly
// as on the SOCI path, which remains for writes and cursors for update.
//
// The statements belong to the connection: NativeReads is made for one SOCI
// session and must be destroyed before that session closes (store/database
// does so, also before a reconnection), which finalises them.
//
// Thread safety: none; one connection, one thread.
#ifndef WATRIX_STORE_NATIVE_READ_H_
#define WATRIX_STORE_NATIVE_READ_H_

#include <memory>

#include "store/connection.h"
#include "store/sql_area.h"
#include "store/statement.h"

namespace soci {
class session;
}

namespace lk::store {

class NativeReads {
 public:
  // For the open session `sql` of `dialect`; null when its backend offers
  // no native handle.
  static std::unique_ptr<NativeReads> Make(soci::session* sql, Dialect dialect);
  virtual ~NativeReads() = default;

  // A select into: the first row into the outputs of `out`; 100 when none.
  virtual int SelectInto(const StatementDef& s, const void* in, void* out, SqlArea* area) = 0;

  // A list's cursor, open from Open to Close.
  class Rows {
   public:
    virtual ~Rows() = default;
    // The next row into the outputs of `out`; 100 at the end.
    virtual int Fetch(void* out, SqlArea* area) = 0;
  };
  // Opens the cursor of `s` with the inputs of `in`; null with the area
  // filled when it could not.
  virtual std::unique_ptr<Rows> Open(const StatementDef& s, const void* in, SqlArea* area) = 0;
};

}  // namespace lk::store

#endif  // WATRIX_STORE_NATIVE_READ_H_
