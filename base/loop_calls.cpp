#include "base/loop_calls.h"

#include <exception>

namespace korv {

LoopCalls::LoopCalls(EventLoop& loop) : loop_(loop), gate_(std::make_shared<Gate>()) {}

void LoopCalls::Post(std::function<void()> task) {
  loop_.Post([gate = gate_, task = std::move(task)] {
    {
      const std::lock_guard lock(gate->Mutex);
      if (!gate->Open) return;
    }
    // Only this thread closes the gate.
    task();
  });
}

bool LoopCalls::Call(std::function<void()> task) {
  struct Outcome {
    bool Done = false;
    std::exception_ptr Thrown;
  };
  const auto outcome = std::make_shared<Outcome>();
  {
    const std::lock_guard lock(gate_->Mutex);
    if (!gate_->Waiting) return false;
  }
  loop_.Post([gate = gate_, outcome, task = std::move(task)] {
    {
      const std::lock_guard lock(gate->Mutex);
      if (!gate->Waiting) return;
    }
    std::exception_ptr thrown;
    try {
      task();
    } catch (...) {
      thrown = std::current_exception();
    }
    {
      const std::lock_guard lock(gate->Mutex);
      outcome->Done = true;
      outcome->Thrown = std::move(thrown);
    }
    gate->Changed.notify_all();
  });
  std::unique_lock lock(gate_->Mutex);
  gate_->Changed.wait(lock, [&] { return outcome->Done || !gate_->Waiting; });
  if (!outcome->Done) return false;
  // Taken out, so that the exception dies on this thread, which handles it.
  if (std::exception_ptr thrown = std::exchange(outcome->Thrown, nullptr)) {
    lock.unlock();
    std::rethrow_exception(std::move(thrown));
  }
  return true;
}

void LoopCalls::EndWaiting() {
  {
    const std::lock_guard lock(gate_->Mutex);
    gate_->Waiting = false;
  }
  gate_->Changed.notify_all();
}

void LoopCalls::Close() {
  {
    const std::lock_guard lock(gate_->Mutex);
    gate_->Waiting = false;
    gate_->Open = false;
  }
  gate_->Changed.notify_all();
}

}  // namespace korv
