#pragma once

#include <cstddef>
#include <functional>

#include "base/yielder.h"

namespace korv {

/// The number of threads that a stage may use; at least 1.
size_t WorkerCount();

/// Calls `work(task, worker)` once for every task 0..tasks-1, the lowest first, on up to WorkerCount()
/// threads. The calling thread yields meanwhile. `worker` is the number of the thread, below WorkerCount(),
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
