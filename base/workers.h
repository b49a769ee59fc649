#pragma once

#include <cstddef>
#include <functional>

#include "base/yielder.h"

namespace korv {

/// How many threads a stage may use; at least 1.
size_t WorkerCount();

/// Runs `work(task, worker)` for every task 0..tasks-1, each once, lowest first, on up to WorkerCount()
/// threads, and keeps the calling thread yielding meanwhile. `worker` is below WorkerCount() and names the
/// thread, for buffers of its own. After a stop no further task is begun. The first exception of a task is
/// thrown here, once all threads have ended. With `onCallingThread` everything runs on the calling thread,
/// which yields between tasks: for work too small to be worth a thread. Returns false when stopped.
bool RunTasks(size_t tasks, bool onCallingThread, Yielder& yielder,
              const std::function<void(size_t task, size_t worker)>& work);

/// Runs `work(begin, end)` for parts of [0, n) as RunTasks does, on the calling thread where one part is all.
bool RunParts(size_t n, Yielder& yielder, const std::function<void(size_t begin, size_t end)>& work);

}  // namespace korv
