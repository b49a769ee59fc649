#include "desktop/toolkit/qt_event_loop.h"

#include <QCoreApplication>
#include <QEvent>
#include <utility>

namespace korv {

QtEventLoop::QtEventLoop(std::function<void(std::exception_ptr)> failed) : failed_(std::move(failed)) {}

void QtEventLoop::Post(std::function<void()> task) {
  bool first = false;
  {
    const std::lock_guard lock(mutex_);
    first = tasks_.empty();
    tasks_.push_back(std::move(task));
  }
  if (first) AskForAnEvent();
}

void QtEventLoop::AskForAnEvent() {
  QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

std::function<void()> QtEventLoop::Next() {
  std::function<void()> task;
  bool more = false;
  {
    const std::lock_guard lock(mutex_);
    if (tasks_.empty()) return {};
    task = std::move(tasks_.front());
    tasks_.pop_front();
    more = !tasks_.empty();
  }
  if (more) AskForAnEvent();
  return task;
}

void QtEventLoop::customEvent(QEvent* /*event*/) {
  const std::function<void()> task = Next();
  if (!task) return;
  try {
    task();
  } catch (...) {
    failed_(std::current_exception());
  }
}

}  // namespace korv
