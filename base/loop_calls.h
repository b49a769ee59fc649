#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

#include "base/event_loop.h"

namespace korv {

/// Calls from a worker into the thread of an event loop. Every task owns what it uses, or uses what belongs
/// to the loop's thread: one that is being done when the calls are closed outlives the call.
class LoopCalls {
 public:
  explicit LoopCalls(EventLoop& loop);
  ~LoopCalls() { Close(); }
  LoopCalls(const LoopCalls&) = delete;
  LoopCalls& operator=(const LoopCalls&) = delete;

  /// Has the loop do `task`, and returns at once.
  void Post(std::function<void()> task);
  /// Has the loop do `task`, and waits until it is done. What it throws is thrown here. False when it was not
  /// done, or may not have been, because waiting is over. Never called on the loop's thread.
  bool Call(std::function<void()> task);
  /// Call() with an answer; empty when waiting is over.
  template <typename Answer>
  std::optional<Answer> Ask(std::function<Answer()> question) {
    const auto answer = std::make_shared<std::optional<Answer>>();
    if (!Call([answer, question = std::move(question)] { *answer = question(); })) return std::nullopt;
    return std::move(*answer);
  }

  /// From here on nobody waits: Call() returns false, and so do the calls that wait now. Posted tasks are
  /// still done. On the loop's thread.
  void EndWaiting();
  /// EndWaiting(), and no posted task is done any more. On the loop's thread.
  void Close();

 private:
  struct Gate {
    std::mutex Mutex;
    std::condition_variable Changed;
    bool Waiting = true;  ///< Calls may wait.
    bool Open = true;     ///< Posted tasks are done.
  };

  EventLoop& loop_;
  std::shared_ptr<Gate> gate_;  ///< Outlives this in the tasks that the loop still has.
};

}  // namespace korv
