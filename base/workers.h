#pragma once

#include <cstddef>
#include <functional>

#include "base/yielder.h"

namespace korv {

/// The number of threads that the system has processors for; at least 1.
size_t WorkerCount();
/// A yielder that is one of these, too, says itself how many threads may work for its loops, at least 1. No
/// result depends on it.
class ThreadChoice {
 public:
  virtual ~ThreadChoice() = default;
  virtual size_t Threads() const = 0;
};

/// The number of threads that work for a loop of this yielder: that of its choice, else WorkerCount().
size_t WorkerCount(const Yielder& yielder);

/// Calls `work(task, worker)` once for every task 0..tasks-1, the lowest first, on up to WorkerCount(yielder)
/// threads. The calling thread yields meanwhile. `worker` is the number of the thread, below that,
/// for buffers of its own. No task begins after a stop. The first exception of a task is thrown here when all
/// threads have ended. With `onCallingThread` all tasks run on the calling thread, which yields between them;
/// that is for work too small to be worth a thread, and is so where the system makes none. Returns false when
/// stopped.
bool RunTasks(size_t tasks, bool onCallingThread, Yielder& yielder,
              const std::function<void(size_t task, size_t worker)>& work);

/// Calls `work(begin, end)` for parts of [0, n) as RunTasks() calls tasks, on the calling thread where there
/// is only one part.
bool RunParts(size_t n, Yielder& yielder, const std::function<void(size_t begin, size_t end)>& work);

}  // namespace korv
