// What a transaction owes before its first write (store/connection.h).
#include "store/connection.h"

#include "store/soci.h"

namespace lk::store {

void BeforeWrites(const Connection& c) {
  if (!c.defer_pending || c.sql == nullptr) return;
  *c.sql << "PRAGMA defer_foreign_keys = ON";
  c.defer_pending = false;
}

}  // namespace lk::store
