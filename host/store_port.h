// The host's view of the database: one transaction per event.
//
// The host calls Begin before the first unit of an event runs, Commit after a
// normal end, and Rollback on the marker "R" or a fatal stop. The store of
// the session implements it (lk::store::SociStore, store/store_port.h);
// NullStore stands in where a session has no database.
#ifndef WATRIX_HOST_STORE_PORT_H_
#define WATRIX_HOST_STORE_PORT_H_

#include <string>

namespace watrix {

class StorePort {
 public:
  virtual ~StorePort() = default;
  virtual void Begin() = 0;
  virtual void Commit() = 0;
  virtual void Rollback() = 0;
  // What the module's statements reach through SessionPort.store.
  virtual void* ModuleHandle() { return nullptr; }
  // Why the last Begin could not begin, or why the work of the last Commit
  // did not stand (it is rolled back); empty when neither failed. The host
  // reports it as the event's failure.
  virtual std::string failure() const { return ""; }
};

class NullStore : public StorePort {
 public:
  void Begin() override {}
  void Commit() override {}
  void Rollback() override {}
};

}  // namespace watrix

#endif  // WATRIX_HOST_STORE_PORT_H_
