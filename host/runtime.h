// The runtime: units are not reentrant, so the events of all sessions run
// one at a time, in turn. A caller waits for its turn and then runs its work
// itself, on its own thread; the turns go in the order in which the callers
// asked (a ticket each).
//
// The work once went to a thread of the runtime's own and the caller slept
// until the answer came back: two hand-overs of a few microseconds each on
// an idle machine, and far more on a busy one, where each woken thread
// waits for a processor. The screen that most calls build takes less than
// that. Taking turns keeps what the thread gave, one unit at a time and no
// unit on two threads at once, and no call waits for a thread to wake
// unless another call holds the turn.
//
// Thread safety: Run may be called from any thread, and from within work
// that Run runs (it then runs at once, in the same turn).
#ifndef WATRIX_HOST_RUNTIME_H_
#define WATRIX_HOST_RUNTIME_H_

#include <atomic>
#include <thread>

namespace watrix {

class Runtime {
 public:
  Runtime() = default;
  Runtime(const Runtime&) = delete;
  Runtime& operator=(const Runtime&) = delete;

  // Runs `work` in its turn and answers its result; an exception that
  // `work` throws ends the turn and goes on to the caller.
  template <typename T, typename F>
  T Run(F&& work) {
    if (owner_.load(std::memory_order_relaxed) == std::this_thread::get_id()) return work();
    Turn turn(this);
    return work();
  }

 private:
  // Holds the turn from its construction to its destruction.
  class Turn {
   public:
    explicit Turn(Runtime* runtime);
    ~Turn();
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

   private:
    Runtime* runtime_;
  };

  std::atomic<unsigned> next_{0};     // the ticket the next caller takes
  std::atomic<unsigned> serving_{0};  // the ticket whose turn it is
  std::atomic<std::thread::id> owner_{};  // the thread that holds the turn
};

}  // namespace watrix

#endif  // WATRIX_HOST_RUNTIME_H_
