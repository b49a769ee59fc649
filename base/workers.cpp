#include "base/workers.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace korv {

size_t WorkerCount() {
  return std::max(1u, std::thread::hardware_concurrency());
}

size_t WorkerCount(const Yielder& yielder) {
  const auto* const choice = dynamic_cast<const ThreadChoice*>(&yielder);
  return choice != nullptr ? choice->Threads() : WorkerCount();
}

namespace {

bool RunHere(std::atomic<size_t>& next, size_t tasks, Yielder& yielder,
             const std::function<void(size_t, size_t)>& work) {
  while (!yielder.Stopped()) {
    const size_t task = next.fetch_add(1, std::memory_order_relaxed);
    if (task >= tasks) break;
    work(task, 0);
    yielder.Yield();
  }
  return !yielder.Stopped();
}

/// Threads that do tasks until none is left.
class Team {
 public:
  Team(std::atomic<size_t>& next, size_t tasks, const Yielder& yielder,
       const std::function<void(size_t, size_t)>& work)
      : next_(next), tasks_(tasks), yielder_(yielder), work_(work) {}

  /// Begins with up to so many threads, and returns how many the system would make.
  size_t Begin(size_t threads) {
    threads_.reserve(threads);
    for (size_t worker = 0; worker < threads; ++worker) {
      Count(1);
      try {
        threads_.emplace_back([this, worker] { Work(worker); });
      } catch (const std::system_error&) {
        Count(-1);
        break;
      }
    }
    return threads_.size();
  }

  /// Waits for all, and rethrows what the first of them threw.
  void Wait(Yielder& yielder) {
    std::unique_lock lock(mutex_);
    while (running_ > 0) {
      ended_.wait_for(lock, std::chrono::milliseconds(2));
      lock.unlock();
      yielder.YieldNow();
      lock.lock();
    }
    lock.unlock();
    threads_.clear();
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  void Work(size_t worker) {
    try {
      while (!yielder_.Stopped() && !failed_.load(std::memory_order_relaxed)) {
        const size_t task = next_.fetch_add(1, std::memory_order_relaxed);
        if (task >= tasks_) break;
        work_(task, worker);
      }
    } catch (...) {
      const std::lock_guard lock(mutex_);
      if (!failure_) failure_ = std::current_exception();
      failed_.store(true, std::memory_order_relaxed);
    }
    Count(-1);
  }

  void Count(int by) {
    const std::lock_guard lock(mutex_);
    running_ += by;
    ended_.notify_one();
  }

  std::atomic<size_t>& next_;
  size_t tasks_;
  const Yielder& yielder_;
  const std::function<void(size_t, size_t)>& work_;
  std::mutex mutex_;
  std::condition_variable ended_;
  int running_ = 0;
  std::exception_ptr failure_;
  std::atomic<bool> failed_{false};
  std::vector<std::jthread> threads_;  ///< Last: they use all of the above.
};

}  // namespace

bool RunTasks(size_t tasks, bool onCallingThread, Yielder& yielder,
              const std::function<void(size_t, size_t)>& work) {
  std::atomic<size_t> next{0};
  if (onCallingThread) return RunHere(next, tasks, yielder, work);
  Team team(next, tasks, yielder, work);
  // A system that makes no threads has the one that is here.
  if (team.Begin(std::min(tasks, WorkerCount(yielder))) == 0) return RunHere(next, tasks, yielder, work);
  team.Wait(yielder);
  return !yielder.Stopped();
}

bool RunParts(size_t n, Yielder& yielder, const std::function<void(size_t, size_t)>& work) {
  constexpr size_t kPart = 1024;
  return RunTasks((n + kPart - 1) / kPart, n <= kPart, yielder,
                  [&](size_t part, size_t) { work(part * kPart, std::min(n, (part + 1) * kPart)); });
}

}  // namespace korv
