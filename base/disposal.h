#pragma once

#include <memory>
#include <mutex>
#include <utility>

#include "base/job_thread.h"

namespace korv {

/// Shares large values among threads and has each destroyed on a thread of jobs, whoever lets go of it last:
/// freeing what a large text left takes a while. The values may outlive this and the thread; then the last
/// owner destroys them itself.
class Disposal {
 public:
  /// `jobs` outlives this.
  explicit Disposal(JobThread& jobs) : door_(std::make_shared<Door>()) { door_->Jobs = &jobs; }
  ~Disposal() {
    const std::lock_guard lock(door_->Mutex);
    door_->Jobs = nullptr;
  }
  Disposal(const Disposal&) = delete;
  Disposal& operator=(const Disposal&) = delete;

  template <typename Value>
  std::shared_ptr<Value> Share(std::unique_ptr<Value> value) const {
    return std::shared_ptr<Value>(value.release(), [door = door_](Value* last) {
      std::shared_ptr<Value> dying(last);
      const std::lock_guard lock(door->Mutex);
      if (door->Jobs != nullptr) door->Jobs->Post([dying = std::move(dying)] {});
    });
  }

 private:
  struct Door {
    std::mutex Mutex;
    JobThread* Jobs = nullptr;  ///< Null once nothing is to be posted any more.
  };
  std::shared_ptr<Door> door_;
};

}  // namespace korv
