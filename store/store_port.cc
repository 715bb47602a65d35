// The store of a host session over a Database.
#include "store/store_port.h"

#include <utility>

namespace lk::store {

SociStore::SociStore(std::unique_ptr<Database> database) : database_(std::move(database)) {}

void SociStore::Begin() {
  failure_.clear();
  std::string why;
  if (!database_->Begin(&why)) failure_ = "cannot begin a transaction: " + why;
}

void SociStore::Commit() {
  std::string why;
  if (!database_->Commit(&why)) failure_ = "the event's work did not stand: " + why;
}

void SociStore::Rollback() { database_->Rollback(); }

}  // namespace lk::store
