// The runtime's turns: answers and exceptions come back to the caller, work
// from many threads never overlaps, a call from within work runs at once,
// and a turn that ends in an exception lets the next one in.
#include "host/runtime.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace watrix {
namespace {

TEST(RuntimeTest, AnswersAndExceptionsComeBack) {
  Runtime runtime;
  EXPECT_EQ(42, runtime.Run<int>([] { return 42; }));
  EXPECT_EQ("text", runtime.Run<std::string>([] { return std::string("text"); }));
  auto moved = runtime.Run<std::unique_ptr<int>>([] { return std::make_unique<int>(7); });
  ASSERT_NE(nullptr, moved);
  EXPECT_EQ(7, *moved);
  EXPECT_THROW(runtime.Run<int>([]() -> int { throw std::runtime_error("boom"); }),
               std::runtime_error);
  EXPECT_EQ(1, runtime.Run<int>([] { return 1; }));
}

TEST(RuntimeTest, WorkFromManyThreadsNeverOverlaps) {
  Runtime runtime;
  std::atomic<int> inside{0};
  std::atomic<bool> overlapped{false};
  long long total = 0;  // touched only inside the turns
  constexpr int kThreads = 8;
  constexpr int kCalls = 2000;
  std::vector<std::thread> callers;
  for (int t = 0; t < kThreads; ++t) {
    callers.emplace_back([&, t] {
      for (int i = 0; i < kCalls; ++i) {
        runtime.Run<long long>([&] {
          if (inside.fetch_add(1) != 0) overlapped = true;
          total += t;
          if (i % 500 == 0) std::this_thread::sleep_for(std::chrono::microseconds(100));
          inside.fetch_sub(1);
          return total;
        });
      }
    });
  }
  for (std::thread& c : callers) c.join();
  EXPECT_FALSE(overlapped);
  EXPECT_EQ(static_cast<long long>(kCalls) * (kThreads * (kThreads - 1) / 2),
            runtime.Run<long long>([&] { return total; }));
}

TEST(RuntimeTest, ACallFromWithinWorkRunsAtOnce) {
  Runtime runtime;
  EXPECT_EQ(3, runtime.Run<int>([&] { return runtime.Run<int>([] { return 3; }); }));
  // The turn ended with the outer call: another thread gets one.
  int seen = 0;
  std::thread other([&] { seen = runtime.Run<int>([] { return 4; }); });
  other.join();
  EXPECT_EQ(4, seen);
}

TEST(RuntimeTest, ATurnEndedByAnExceptionLetsTheNextIn) {
  Runtime runtime;
  std::atomic<bool> thrown{false};
  std::thread first([&] {
    try {
      runtime.Run<int>([]() -> int {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        throw std::runtime_error("boom");
      });
    } catch (const std::runtime_error&) {
      thrown = true;
    }
  });
  std::this_thread::sleep_for(std::chrono::milliseconds(1));
  int seen = 0;
  std::thread second([&] { seen = runtime.Run<int>([] { return 5; }); });
  first.join();
  second.join();
  EXPECT_TRUE(thrown);
  EXPECT_EQ(5, seen);
}

}  // namespace
}  // namespace watrix
