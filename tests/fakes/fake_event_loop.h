#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

#include "base/event_loop.h"

namespace korv {

/// An event loop that runs when a test says so, on the thread of the test.
class FakeEventLoop final : public EventLoop {
 public:
  void Post(std::function<void()> task) override {
    {
      const std::lock_guard lock(mutex_);
      tasks_.push_back(std::move(task));
    }
    posted_.notify_all();
  }

  /// Does what is posted until `enough`; false when that takes longer than any test should.
  template <typename Enough>
  bool RunUntil(Enough enough) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!enough()) {
      std::function<void()> task;
      {
        std::unique_lock lock(mutex_);
        if (!posted_.wait_until(lock, end, [this] { return !tasks_.empty(); })) return false;
        task = std::move(tasks_.front());
        tasks_.pop_front();
      }
      task();
    }
    return true;
  }
  /// Does what is posted now.
  void RunPosted() {
    size_t left = Posted();
    RunUntil([&] { return left-- == 0; });
  }
  size_t Posted() {
    const std::lock_guard lock(mutex_);
    return tasks_.size();
  }

 private:
  std::mutex mutex_;
  std::condition_variable posted_;
  std::deque<std::function<void()>> tasks_;
};

}  // namespace korv
