#include "app/run/run_thread.h"

#include <utility>

namespace korv {

RunThread::RunThread(EventLoop& loop, korv::Messages& messages, TurnYielder& yielder)
    : yielder_(yielder), calls_(loop), messages_(calls_, messages) {}

RunThread::~RunThread() {
  calls_.Close();
  yielder_.RequestStop();
}

void RunThread::Start(RunActivity what, std::function<void()> work,
                      std::function<void(std::exception_ptr)> done) {
  doing_ = what;
  yielder_.ClearStop();
  jobs_.Post([this, work = std::move(work), done = std::move(done)]() mutable {
    std::exception_ptr thrown;
    try {
      work();
    } catch (...) {
      thrown = std::current_exception();
    }
    yielder_.OnTurn({});
    // Whatever the work holds is freed here.
    work = nullptr;
    calls_.Post([this, done = std::move(done), thrown = std::move(thrown)] { End(done, thrown); });
  });
}

void RunThread::End(const std::function<void(std::exception_ptr)>& done, std::exception_ptr thrown) {
  doing_ = RunActivity::None;
  done(std::move(thrown));
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
  calls_.EndWaiting();
  yielder_.RequestStop();
}

}  // namespace korv
