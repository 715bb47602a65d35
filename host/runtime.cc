// Turns by ticket. A caller whose ticket is not served yet sleeps on the
// served counter (std::atomic::wait, a futex); the end of a turn moves the
// counter on and wakes the sleepers, each of which looks whether its own
// ticket came up.
#include "host/runtime.h"

namespace watrix {

Runtime::Turn::Turn(Runtime* runtime) : runtime_(runtime) {
  const unsigned ticket = runtime->next_.fetch_add(1, std::memory_order_relaxed);
  for (unsigned served = runtime->serving_.load(std::memory_order_acquire); served != ticket;
       served = runtime->serving_.load(std::memory_order_acquire)) {
    runtime->serving_.wait(served, std::memory_order_acquire);
  }
  // Only this thread compares its own id with owner_ while it holds the
  // turn; other threads never see their own id there.
  runtime->owner_.store(std::this_thread::get_id(), std::memory_order_relaxed);
}

Runtime::Turn::~Turn() {
  runtime_->owner_.store(std::thread::id(), std::memory_order_relaxed);
  // Release: the next turn sees everything this one did.
  runtime_->serving_.fetch_add(1, std::memory_order_release);
  runtime_->serving_.notify_all();
}

}  // namespace watrix
