#include "base/workers.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace korv {

size_t WorkerCount() {
  return std::max(1u, std::thread::hardware_concurrency());
}

bool RunTasks(size_t tasks, bool onCallingThread, Yielder& yielder,
              const std::function<void(size_t, size_t)>& work) {
  if (onCallingThread) {
    for (size_t task = 0; task < tasks && !yielder.Stopped(); ++task) {
      work(task, 0);
      yielder.Yield();
    }
    return !yielder.Stopped();
  }

  std::atomic<size_t> next{0};
  std::mutex mutex;
  std::condition_variable ended;
  size_t running = std::min(tasks, WorkerCount());
  std::exception_ptr failure;
  std::atomic<bool> failed{false};

  std::vector<std::jthread> threads;
  threads.reserve(running);
  for (size_t worker = 0, count = running; worker < count; ++worker)
    threads.emplace_back([&, worker] {
      try {
        while (!yielder.Stopped() && !failed.load(std::memory_order_relaxed)) {
          const size_t task = next.fetch_add(1, std::memory_order_relaxed);
          if (task >= tasks) break;
          work(task, worker);
        }
      } catch (...) {
        const std::lock_guard lock(mutex);
        if (!failure) failure = std::current_exception();
        failed.store(true, std::memory_order_relaxed);
      }
      const std::lock_guard lock(mutex);
      --running;
      ended.notify_one();
    });

  std::unique_lock lock(mutex);
  while (running > 0) {
    ended.wait_for(lock, std::chrono::milliseconds(2));
    lock.unlock();
    yielder.YieldNow();
    lock.lock();
  }
  lock.unlock();
  threads.clear();
  if (failure) std::rethrow_exception(failure);
  return !yielder.Stopped();
}

bool RunParts(size_t n, Yielder& yielder, const std::function<void(size_t, size_t)>& work) {
  constexpr size_t kPart = 1024;
  return RunTasks((n + kPart - 1) / kPart, n <= kPart, yielder,
                  [&](size_t part, size_t) { work(part * kPart, std::min(n, (part + 1) * kPart)); });
}

}  // namespace korv
