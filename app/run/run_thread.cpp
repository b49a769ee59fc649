#include "app/run/run_thread.h"

#include <utility>

namespace korv {

RunThread::RunThread(const Window& window, TurnYielder& yielder)
    : yielder_(yielder),
      calls_(window.Loop),
      messages_(calls_, window.Messages,
                [this] {
                  WaitWhileHeld();
                  updates_.Flush();
                }),
      updates_(calls_, window.Observer),
      box_(calls_, window.Box),
      disposal_(jobs_) {}

RunThread::~RunThread() {
  calls_.Close();
  yielder_.RequestStop();
  {
    const std::lock_guard lock(holdMutex_);
    ending_ = true;
  }
  holdChanged_.notify_all();
}

void RunThread::Start(RunActivity what, std::function<void()> work,
                      std::function<void(std::exception_ptr)> done) {
  doing_ = what;
  working_ = true;
  yielder_.ClearStop();
  jobs_.Post([this, work = std::move(work), done = std::move(done)]() mutable {
    OnTurn({});
    std::exception_ptr thrown;
    try {
      work();
    } catch (...) {
      thrown = std::current_exception();
    }
    // Whatever the work holds is freed here.
    work = nullptr;
    yielder_.SetTurn({});
    WaitWhileHeld();
    updates_.Flush();
    calls_.Post([this, done = std::move(done), thrown = std::move(thrown)] { End(done, thrown); });
  });
}

void RunThread::End(const std::function<void(std::exception_ptr)>& done, std::exception_ptr thrown) {
  if (Held()) {
    heldBack_ = [this, done, thrown] { End(done, thrown); };
    return;
  }
  working_ = false;
  done(std::move(thrown));
  if (!working_) BecomeIdle();
}

void RunThread::EndIfHeldBack() {
  if (heldBack_ && !Held()) calls_.Post(std::exchange(heldBack_, nullptr));
}

void RunThread::BecomeIdle() {
  doing_ = RunActivity::None;
  idle_();
  while (Idle() && !waiting_.empty()) {
    const std::function<void()> act = std::move(waiting_.front());
    waiting_.pop_front();
    act();
  }
}

void RunThread::WhenIdle(std::function<void()> act) {
  if (Idle() && waiting_.empty()) return act();
  waiting_.push_back(std::move(act));
}

void RunThread::Abandon() {
  abandoned_ = true;
  waiting_.clear();
  calls_.EndWaiting();
  yielder_.RequestStop();
}

void RunThread::OnTurn(std::function<void()> turn) {
  yielder_.SetTurn([this, turn = std::move(turn)] {
    WaitWhileHeld();
    if (turn) turn();
    updates_.Flush();
  });
}

void RunThread::ChangeHolds(int by) {
  {
    const std::lock_guard lock(holdMutex_);
    holds_ += by;
  }
  holdChanged_.notify_all();
}

bool RunThread::Held() {
  const std::lock_guard lock(holdMutex_);
  return holds_ > 0;
}

void RunThread::WaitWhileHeld() {
  std::unique_lock lock(holdMutex_);
  holdChanged_.wait(lock, [this] { return holds_ == 0 || ending_; });
}

}  // namespace korv
