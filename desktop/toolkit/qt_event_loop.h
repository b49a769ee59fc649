#pragma once

#include <QObject>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>

#include "base/event_loop.h"

namespace korv {

/// The event loop of the thread that makes this object. Every task is an event of its own, so that neither a
/// worker that posts many nor a task that shows a box, which runs events itself, keeps other events waiting.
class QtEventLoop final : public QObject, public EventLoop {
 public:
  /// `failed` is called with what a task throws: exceptions must not pass through the toolkit.
  explicit QtEventLoop(std::function<void(std::exception_ptr)> failed);

  void Post(std::function<void()> task) override;

 protected:
  void customEvent(QEvent* event) override;

 private:
  /// The next task. Empty when there is none; asks for another event when more tasks wait.
  std::function<void()> Next();
  void AskForAnEvent();

  std::function<void(std::exception_ptr)> failed_;
  // Tasks go from thread to thread here and not within the event, whose way through the toolkit nobody can
  // check.
  std::mutex mutex_;
  std::deque<std::function<void()>> tasks_;
};

}  // namespace korv
