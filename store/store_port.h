// The store of a host session: the StorePort (frame/store_port.h) over a
// Database, one transaction per event.
//
// ModuleHandle() answers the Database's Connection, so that SessionPort.store
// (behind HandleA) points at the lk::store::Connection that the module's
// statements and the cascade entries use; it stays valid as long as the
// SociStore, across reconnections.
//
// Begin, Commit and Rollback go to the Database. A Begin that cannot begin,
// or a Commit whose work did not stand, leaves its reason in failure() until
// the next Begin; Rollback never fails.
//
// Thread safety: none; the host calls it from its runtime thread.
#ifndef WATRIX_STORE_STORE_PORT_H_
#define WATRIX_STORE_STORE_PORT_H_

#include <memory>
#include <string>

#include "frame/store_port.h"
#include "store/database.h"

namespace lk::store {

class SociStore : public StorePort {
 public:
  // REQUIRES: database != nullptr.
  explicit SociStore(std::unique_ptr<Database> database);

  void Begin() override;
  void Commit() override;
  void Rollback() override;
  void* ModuleHandle() override { return database_->connection(); }
  std::string failure() const override { return failure_; }

  Database* database() { return database_.get(); }

 private:
  std::unique_ptr<Database> database_;
  std::string failure_;
};

}  // namespace lk::store

#endif  // WATRIX_STORE_STORE_PORT_H_
