#pragma once

#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>

#include "app/run/remote_box.h"
#include "app/run/remote_messages.h"
#include "app/run/run_updates.h"
#include "base/disposal.h"
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
  Exporting,     ///< A run as a table.
  KeepingRun,    ///< As a file.
  OpeningRun,    ///< From such a file.
};

/// The thread beside a window that does whatever may take long: one thing at a time, on the window's behalf.
/// The window stays alive meanwhile and asks it to stop if the user wishes.
///
/// Belongs to the thread of the event loop. What the worker uses of it is marked so.
class RunThread {
 public:
  /// What the worker reaches of a window, on the thread of its event loop.
  struct Window {
    EventLoop& Loop;
    korv::Messages& Messages;
    RunObserver& Observer;
    TextOutput& Box;
  };

  /// All outlive this. Nobody else uses `yielder` but to request a stop.
  RunThread(const Window& window, TurnYielder& yielder);
  /// Stops what is being done and waits for it, which takes a moment; nobody is asked anything and no `done`
  /// is called any more.
  ~RunThread();
  RunThread(const RunThread&) = delete;
  RunThread& operator=(const RunThread&) = delete;

  RunActivity Doing() const { return doing_; }
  bool Idle() const { return doing_ == RunActivity::None; }
  /// The worker is at it; false while `done` is called.
  bool Working() const { return working_; }

  /// Has the worker do `work`, with no stop requested at its start. Afterwards calls `done` on the loop's
  /// thread with what `work` threw, or with null; it must not throw. Only while idle, or from such a `done`:
  /// then the one activity goes over into the other.
  void Start(RunActivity what, std::function<void()> work, std::function<void(std::exception_ptr)> done);
  /// Has `idle` called whenever an activity has ended and no other has begun.
  void OnIdle(std::function<void()> idle) { idle_ = std::move(idle); }
  /// Calls `act` when nothing is being done: now, or once the thread is idle. In the order of the calls.
  void WhenIdle(std::function<void()> act);
  void RequestStop() { yielder_.RequestStop(); }
  /// For the end of the program: requests a stop and has every further question of the worker answered so
  /// that it ends soon. What waits for its end is forgotten, but `done` is called.
  void Abandon();
  bool Abandoned() const { return abandoned_; }
  /// While one of these lives, the worker stands still at its next turn, question or end: the user is asked
  /// what is to become of its work.
  class Hold {
   public:
    explicit Hold(RunThread& thread) : thread_(thread) { thread_.ChangeHolds(1); }
    ~Hold() {
      thread_.ChangeHolds(-1);
      thread_.EndIfHeldBack();
    }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

   private:
    RunThread& thread_;
  };
  /// Shares `value`, which is destroyed on the worker, whoever lets go of it last, and whenever.
  template <typename Value>
  std::shared_ptr<Value> Share(std::unique_ptr<Value> value) const {
    return disposal_.Share(std::move(value));
  }

  // ---- For the work, on the worker

  /// Questions to the user.
  korv::Messages& Messages() { return messages_; }
  RunObserver& Observer() { return updates_; }
  TextOutput& Box() { return box_; }
  korv::Yielder& Yielder() { return yielder_; }
  /// Has `turn` called whenever a long loop hands over, about every 15 ms, until the work ends. Until then
  /// the observer gets to know of what it was told since.
  void OnTurn(std::function<void()> turn);

 private:
  void ChangeHolds(int by);
  void EndIfHeldBack();
  bool Held();
  void WaitWhileHeld();
  void End(const std::function<void(std::exception_ptr)>& done, std::exception_ptr thrown);
  void BecomeIdle();

  TurnYielder& yielder_;
  LoopCalls calls_;
  RemoteMessages messages_;
  RunUpdates updates_;
  RemoteBox box_;
  RunActivity doing_ = RunActivity::None;
  bool working_ = false;
  bool abandoned_ = false;
  std::function<void()> idle_ = [] {};
  std::deque<std::function<void()>> waiting_;  ///< For the end of what is being done.

  std::function<void()> heldBack_;  ///< An end that came while the worker was held.

  std::mutex holdMutex_;
  std::condition_variable holdChanged_;
  int holds_ = 0;
  bool ending_ = false;
  JobThread jobs_;     ///< Its jobs use all of the above.
  Disposal disposal_;  ///< Last: it uses the thread.
};

}  // namespace korv
