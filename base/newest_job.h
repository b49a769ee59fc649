#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "base/job_thread.h"
#include "base/loop_calls.h"
#include "base/yielder.h"

namespace korv {

/// Does the job that was asked for last, on a thread of its own: a newer one stops the one before, and
/// nothing more is heard of that. For views, whose user goes on typing.
///
///   job.Start([run](NewestJob::Turn& turn) {
///     auto rows = std::make_shared<Rows>(Find(*run, turn.Yielder()));
///     turn.Tell([this, rows] { Show(*rows); });
///   });
///
/// Belongs to the thread of the event loop.
class NewestJob {
  struct Ticket;

 public:
  /// A job as it is being done, on the job's thread.
  class Turn {
   public:
    Turn(std::shared_ptr<Ticket> ticket, LoopCalls& calls) : ticket_(std::move(ticket)), calls_(calls) {}

    /// A stop is requested of it when the job is not wanted any more.
    korv::Yielder& Yielder();
    /// Calls `task` on the loop's thread, in the order of the calls, if the job is still wanted then.
    void Tell(std::function<void()> task);

   private:
    std::shared_ptr<Ticket> ticket_;
    LoopCalls& calls_;
  };

  explicit NewestJob(EventLoop& loop) : calls_(loop) {}
  /// Stops the job and waits for its end.
  ~NewestJob();
  NewestJob(const NewestJob&) = delete;
  NewestJob& operator=(const NewestJob&) = delete;

  /// Has `work` done instead of what was asked for before. It is destroyed on the job's thread. What it
  /// throws is thrown in a task of the loop.
  void Start(std::function<void(Turn&)> work);
  /// Nothing is wanted any more.
  void Stop();
  /// Whether nothing goes on: all that the last job told has been heard.
  bool Idle() const { return current_ == nullptr; }

 private:
  LoopCalls calls_;
  std::shared_ptr<Ticket> current_;  ///< Null when idle.
  JobThread thread_;                 ///< Last: its jobs use the calls.
};

}  // namespace korv
