#include "base/job_team.h"

#include <chrono>
#include <system_error>
#include <utility>

namespace korv {

JobTeam::JobTeam(size_t threads) {
  if (threads <= 1) return;
  threads_.reserve(threads);
  for (size_t worker = 0; worker < threads; ++worker) {
    try {
      threads_.emplace_back([this, worker] { Work(worker); });
    } catch (const std::system_error&) {
      break;
    }
  }
}

JobTeam::~JobTeam() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
    waiting_.clear();
  }
  added_.notify_all();
}

void JobTeam::Add(TeamJob& job) {
  {
    const std::lock_guard lock(mutex_);
    waiting_.push_back(&job);
    job.failure_ = nullptr;
    job.state_ = TeamJob::State::Waiting;
  }
  added_.notify_one();
}

void JobTeam::Wait(TeamJob& job, Yielder& yielder) {
  constexpr auto kBetweenYields = std::chrono::milliseconds(2);
  std::unique_lock lock(mutex_);
  while (job.state_ != TeamJob::State::Done) {
    if (threads_.empty()) {
      TeamJob* const next = waiting_.front();
      waiting_.pop_front();
      lock.unlock();
      DoOne(*next, 0);
      yielder.Yield();
      lock.lock();
      next->state_ = TeamJob::State::Done;
      continue;
    }
    if (done_.wait_for(lock, kBetweenYields) == std::cv_status::no_timeout) continue;
    lock.unlock();
    yielder.YieldNow();
    lock.lock();
  }
  job.state_ = TeamJob::State::Idle;
  if (job.failure_) std::rethrow_exception(std::exchange(job.failure_, nullptr));
}

void JobTeam::Work(size_t worker) {
  std::unique_lock lock(mutex_);
  for (;;) {
    added_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
    if (ending_) return;
    TeamJob* const job = waiting_.front();
    waiting_.pop_front();
    job->state_ = TeamJob::State::Doing;
    lock.unlock();
    DoOne(*job, worker);
    lock.lock();
    job->state_ = TeamJob::State::Done;
    done_.notify_all();
  }
}

void JobTeam::DoOne(TeamJob& job, size_t worker) {
  try {
    job.Do(worker);
  } catch (...) {
    job.failure_ = std::current_exception();
  }
}

}  // namespace korv
