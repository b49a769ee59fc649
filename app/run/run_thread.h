#pragma once

#include <deque>
#include <exception>
#include <functional>
#include <memory>

#include "app/run/remote_messages.h"
#include "base/job_thread.h"
#include "base/loop_calls.h"
#include "base/yielder.h"

namespace korv {

/// What the worker of a window is doing.
enum class RunActivity {
  None,
  Counting,
  Listing,       ///< Into the text box or into a file.
  ListingFiles,  ///< Those of a folder.
  ReadingWords,  ///< A word list.
};

/// The thread beside a window that does whatever may take long: one thing at a time, on the window's behalf.
/// The window stays alive meanwhile and asks it to stop if the user wishes.
///
/// Belongs to the thread of the event loop. What the worker uses of it is marked so.
class RunThread {
 public:
  /// All outlive this. Nobody else uses `yielder` but to request a stop.
  RunThread(EventLoop& loop, Messages& messages, TurnYielder& yielder);
  /// Stops what is being done and waits for it, which takes a moment; nobody is asked anything and no `done`
  /// is called any more.
  ~RunThread();
  RunThread(const RunThread&) = delete;
  RunThread& operator=(const RunThread&) = delete;

  RunActivity Doing() const { return doing_; }
  bool Idle() const { return doing_ == RunActivity::None; }

  /// Has the worker do `work`, with no stop requested at its start. Afterwards calls `done` on the loop's
  /// thread, when it is idle again, with what `work` threw, or with null. Only while idle.
  void Start(RunActivity what, std::function<void()> work, std::function<void(std::exception_ptr)> done);
  /// Calls `act` when nothing is being done: now, or after the `done` of what is. In the order of the calls.
  void WhenIdle(std::function<void()> act);
  void RequestStop() { yielder_.RequestStop(); }
  /// Requests a stop, and has every further question of the worker answered so that it ends soon.
  void Abandon();
  /// Destroys `value` on the worker: freeing what a large text left takes a while.
  template <typename Value>
  void Discard(std::unique_ptr<Value> value) {
    if (value) jobs_.Post([shared = std::shared_ptr<Value>(std::move(value))] {});
  }

  // ---- For the work, on the worker

  LoopCalls& Calls() { return calls_; }
  korv::Messages& Messages() { return messages_; }
  korv::Yielder& Yielder() { return yielder_; }
  /// Has `turn` called whenever a long loop hands over, about every 15 ms, until the work ends.
  void OnTurn(std::function<void()> turn) { yielder_.OnTurn(std::move(turn)); }

 private:
  void End(const std::function<void(std::exception_ptr)>& done, std::exception_ptr thrown);

  TurnYielder& yielder_;
  LoopCalls calls_;
  RemoteMessages messages_;
  RunActivity doing_ = RunActivity::None;
  std::deque<std::function<void()>> waiting_;  ///< For the end of what is being done.
  JobThread jobs_;                             ///< Last: its jobs use all of the above.
};

}  // namespace korv
