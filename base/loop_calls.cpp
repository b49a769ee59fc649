#include "base/loop_calls.h"

#include <exception>

namespace korv {

LoopCalls::LoopCalls(EventLoop& loop) : loop_(loop), gate_(std::make_shared<Gate>()) {}

void LoopCalls::Post(std::function<void()> task) {
  loop_.Post([gate = gate_, task = std::move(task)] {
    {
      const std::lock_guard lock(gate->mutex);
      if (!gate->open) return;
    }
    // Only this thread closes the gate.
    task();
  });
}

bool LoopCalls::Call(std::function<void()> task) {
  struct Outcome {
    bool done = false;
    std::exception_ptr thrown;
  };
  const auto outcome = std::make_shared<Outcome>();
  {
    const std::lock_guard lock(gate_->mutex);
    if (!gate_->waiting) return false;
  }
  loop_.Post([gate = gate_, outcome, task = std::move(task)] {
    {
      const std::lock_guard lock(gate->mutex);
      if (!gate->waiting) return;
    }
    std::exception_ptr thrown;
    try {
      task();
    } catch (...) {
      thrown = std::current_exception();
    }
    {
      const std::lock_guard lock(gate->mutex);
      outcome->done = true;
      outcome->thrown = std::move(thrown);
    }
    gate->changed.notify_all();
  });
  std::unique_lock lock(gate_->mutex);
  gate_->changed.wait(lock, [&] { return outcome->done || !gate_->waiting; });
  if (!outcome->done) return false;
  // Taken out, so that the exception dies on this thread, which handles it.
  if (std::exception_ptr thrown = std::exchange(outcome->thrown, nullptr)) {
    lock.unlock();
    std::rethrow_exception(std::move(thrown));
  }
  return true;
}

void LoopCalls::EndWaiting() {
  {
    const std::lock_guard lock(gate_->mutex);
    gate_->waiting = false;
  }
  gate_->changed.notify_all();
}

void LoopCalls::Close() {
  {
    const std::lock_guard lock(gate_->mutex);
    gate_->waiting = false;
    gate_->open = false;
  }
  gate_->changed.notify_all();
}

}  // namespace korv
