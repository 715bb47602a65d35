// The session's store as the host drives it: one transaction per event.
//
// The host calls Begin before the first unit of an event runs, Commit after a
// normal end, and Rollback on the marker "R" or a fatal stop. The data store
// implements it over a database connection; NullStore stands in where a
// session has no database. It sits here, below both the host and the store,
// so that neither has to know the other to meet at it.
//
// Thread safety: none; the host calls it from its one runtime thread.
#ifndef WATRIX_FRAME_STORE_PORT_H_
#define WATRIX_FRAME_STORE_PORT_H_

#include <string>

namespace lk {

class StorePort {
 public:
  virtual ~StorePort() = default;
  virtual void Begin() = 0;
  virtual void Commit() = 0;
  virtual void Rollback() = 0;
  // What the module's statements reach through SessionPort.store
  // (frame/host_port.h); null when there is no database.
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

}  // namespace lk

#endif  // WATRIX_FRAME_STORE_PORT_H_
