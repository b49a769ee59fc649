#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

#include "base/yielder.h"

namespace korv {

/// Something that one of a team's threads does. Owned by whoever adds it, who leaves it alone until it is
/// done.
class TeamJob {
 public:
  TeamJob() = default;
  TeamJob(const TeamJob&) = delete;
  TeamJob& operator=(const TeamJob&) = delete;
  virtual ~TeamJob() = default;

 protected:
  /// `worker` is the number of the thread, below JobTeam::Workers(), for what each has of its own.
  virtual void Do(size_t worker) = 0;

 private:
  friend class JobTeam;
  enum class State : uint8_t { Idle, Waiting, Doing, Done };
  State state_ = State::Idle;
  std::exception_ptr failure_;
};

/// Threads that do jobs side by side, while the thread that owns the team gives them more. Jobs begin in the
/// order in which they come: a thread does them in that order, and whoever waits for them in that order waits
/// no longer than he must. For a known number of jobs there is RunTasks().
class JobTeam {
 public:
  /// Of so many threads, at least 1. One is as good as none: jobs are then done by the thread that waits for
  /// them; and so they are where the system makes no threads.
  explicit JobTeam(size_t threads);
  /// Waits for the jobs that are being done; the others are dropped.
  ~JobTeam();
  JobTeam(const JobTeam&) = delete;
  JobTeam& operator=(const JobTeam&) = delete;

  /// The number of threads that do jobs, at least 1.
  size_t Workers() const { return threads_.empty() ? 1 : threads_.size(); }
  /// `job` must not be one that waits or is being done, and must outlive the team or be waited for.
  void Add(TeamJob& job);
  /// Returns when `job`, which was added, is done, and throws what it threw. Yields meanwhile.
  void Wait(TeamJob& job, Yielder& yielder);

 private:
  void Work(size_t worker);
  static void DoOne(TeamJob& job, size_t worker);

  std::mutex mutex_;
  std::condition_variable added_;
  std::condition_variable done_;
  std::deque<TeamJob*> waiting_;
  bool ending_ = false;
  std::vector<std::jthread> threads_;  ///< Last: they use all of the above.
};

}  // namespace korv
