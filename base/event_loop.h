#pragma once

#include <functional>

namespace korv {

/// The loop in which one thread, that of the windows, handles its events.
class EventLoop {
 public:
  virtual ~EventLoop() = default;
  /// Has the loop's thread call `task`, after everything that was posted before. May be called from any
  /// thread and returns at once. A loop that ends first destroys the task without calling it.
  virtual void Post(std::function<void()> task) = 0;
};

}  // namespace korv
