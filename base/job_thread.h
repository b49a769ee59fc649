#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace korv {

/// Does jobs one after another on a thread of its own.
class JobThread {
 public:
  JobThread();
  /// Waits for the job that is being done; those after it are destroyed without being done.
  ~JobThread();
  JobThread(const JobThread&) = delete;
  JobThread& operator=(const JobThread&) = delete;

  /// Adds a job. It must not throw. It is destroyed on the thread, too. May be called from any thread.
  void Post(std::function<void()> job);

 private:
  void Work();

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::function<void()>> jobs_;
  bool ending_ = false;
  std::thread thread_;  ///< Last: it uses all of the above.
};

}  // namespace korv
