#include "base/workers.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>
#include <vector>

#include "tests/fakes/chosen_threads.h"

namespace korv {
namespace {

TEST(RunTasks, DoesEveryTaskOnceWithNumbersOfWorkersThatThereAre) {
  for (const bool here : {false, true})
    for (const size_t tasks : {size_t{0}, size_t{1}, 60 * WorkerCount()}) {
      std::vector<std::atomic<int>> done(tasks);
      std::atomic<size_t> highest{0};
      NoYielder yielder;
      EXPECT_TRUE(RunTasks(tasks, here, yielder, [&](size_t task, size_t worker) {
        ++done[task];
        // Long enough for every thread to get one.
        std::this_thread::sleep_for(std::chrono::microseconds(300));
        for (size_t before = highest; before < worker && !highest.compare_exchange_weak(before, worker);) {
        }
      }));
      for (const auto& times : done) EXPECT_EQ(times, 1);
      EXPECT_LT(highest, here ? 1 : WorkerCount());
    }
}

TEST(RunTasks, UsesAsManyThreadsAsTheYielderChooses) {
  for (const size_t threads : {1U, 3U, 16U}) {
    WithThreads<> yielder(threads);
    EXPECT_EQ(WorkerCount(yielder), threads);
    std::vector<std::atomic<int>> ofWorker(threads);
    // Each waits for the others, so that every thread gets one.
    std::atomic<size_t> begun{0};
    EXPECT_TRUE(RunTasks(threads, false, yielder, [&](size_t, size_t worker) {
      ++ofWorker[worker];
      for (++begun; begun < threads;) std::this_thread::yield();
    }));
    for (const auto& tasks : ofWorker) EXPECT_EQ(tasks, 1);
  }
  EXPECT_EQ(WorkerCount(NoYielder()), WorkerCount());
}

TEST(RunTasks, WorksOnTheCallingThreadOnlyWhereThatIsWished) {
  for (const bool here : {false, true}) {
    std::atomic<int> others{0};
    NoYielder yielder;
    RunTasks(10, here, yielder, [&, caller = std::this_thread::get_id()](size_t, size_t) {
      others += std::this_thread::get_id() != caller;
    });
    EXPECT_EQ(others, here ? 0 : 10);
  }
}

TEST(RunTasks, BeginsTheLowestTaskFirstAndNoneAfterAStop) {
  std::vector<size_t> begun;
  NoYielder yielder;
  EXPECT_FALSE(RunTasks(10, true, yielder, [&](size_t task, size_t) {
    begun.push_back(task);
    if (task == 3) yielder.RequestStop();
  }));
  EXPECT_EQ(begun, (std::vector<size_t>{0, 1, 2, 3}));
  std::atomic<size_t> tasks{0};
  EXPECT_FALSE(RunTasks(1000, false, yielder, [&](size_t, size_t) { ++tasks; })) << "stopped before";
  EXPECT_EQ(tasks, 0U);
  yielder.ClearStop();
  EXPECT_FALSE(RunTasks(100'000, false, yielder, [&](size_t, size_t) {
    ++tasks;
    yielder.RequestStop();
  }));
  EXPECT_LE(tasks, WorkerCount());
}

TEST(RunTasks, ThrowsWhatATaskThrewWhenAllHaveEnded) {
  for (const bool here : {false, true}) {
    std::atomic<int> going{0};
    std::atomic<size_t> tasks{0};
    NoYielder yielder;
    EXPECT_THROW(RunTasks(100'000, here, yielder,
                          [&](size_t task, size_t) {
                            ++going;
                            ++tasks;
                            std::this_thread::sleep_for(std::chrono::microseconds(10));
                            --going;
                            if (task == 5) throw std::runtime_error("torn");
                          }),
                 std::runtime_error);
    EXPECT_EQ(going, 0);
    EXPECT_LT(tasks, 100'000U) << "nothing is begun behind a failure";
  }
}

TEST(RunTasks, LetsTheCallerYieldMeanwhile) {
  class Counting final : public Yielder {
   public:
    int Turns = 0;

   protected:
    void HandOver() override {}
    uint32_t NextStride() override {
      ++Turns;
      return 1;
    }
  };
  for (const bool here : {false, true}) {
    Counting yielder;
    RunTasks(20, here, yielder,
             [](size_t, size_t) { std::this_thread::sleep_for(std::chrono::milliseconds(1)); });
    EXPECT_GE(yielder.Turns, here ? 20 : 2);
  }
}

TEST(RunParts, CoversEverythingOnce) {
  for (const size_t n : {0, 1, 1023, 1024, 1025, 2048, 2049, 5000}) {
    std::vector<std::atomic<int>> met(n);
    NoYielder yielder;
    EXPECT_TRUE(RunParts(n, yielder, [&](size_t begin, size_t end) {
      ASSERT_LT(begin, end);
      ASSERT_LE(end, n);
      for (size_t k = begin; k < end; ++k) ++met[k];
    }));
    for (const auto& times : met) ASSERT_EQ(times, 1) << n;
  }
}

TEST(RunParts, HasASinglePartDoneOnTheCallingThread) {
  for (const size_t n : {1, 1024, 1025}) {
    std::atomic<int> others{0};
    NoYielder yielder;
    RunParts(n, yielder, [&, caller = std::this_thread::get_id()](size_t, size_t) {
      others += std::this_thread::get_id() != caller;
    });
    EXPECT_EQ(others, n > 1024 ? 2 : 0) << n;
  }
}

}  // namespace
}  // namespace korv
