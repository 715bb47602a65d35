// The runtime thread: units are not reentrant, so the events of all
// sessions run on this one thread, in turn. Other threads hand it work and
// wait for the answer.
#ifndef WATRIX_HOST_RUNTIME_H_
#define WATRIX_HOST_RUNTIME_H_

#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <mutex>
#include <thread>

namespace watrix {

class Runtime {
 public:
  Runtime();
  // Finishes the work queued so far, then stops the thread.
  ~Runtime();

  // Runs `work` on the runtime thread and waits for its result. Called on
  // the runtime thread itself, it runs `work` at once.
  template <typename T>
  T Run(std::function<T()> work) {
    if (std::this_thread::get_id() == thread_.get_id()) return work();
    std::packaged_task<T()> task(std::move(work));
    std::future<T> result = task.get_future();
    Post([&task] { task(); });
    return result.get();
  }

 private:
  void Post(std::function<void()> job);
  void Loop();

  std::mutex mutex_;
  std::condition_variable wake_;
  std::deque<std::function<void()>> queue_;
  bool stopping_ = false;
  std::thread thread_;
};

}  // namespace watrix

#endif  // WATRIX_HOST_RUNTIME_H_
