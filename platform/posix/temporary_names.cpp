#include "platform/posix/temporary_names.h"

#include <sched.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <vector>

namespace korv {

namespace {

struct Names {
  std::atomic_flag Busy;
  std::atomic<bool> Ending{false};
  std::vector<std::string> Paths;
};

// A handler has no other way to reach them, and must find them ready.
constinit Names names;

/// The thread that has the names takes no signals meanwhile, so that a handler never waits for the thread
/// that it interrupted.
class NamesInUse {
 public:
  NamesInUse() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before_);
    while (names.Busy.test_and_set(std::memory_order_acquire)) sched_yield();
  }
  ~NamesInUse() {
    names.Busy.clear(std::memory_order_release);
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }
  NamesInUse(const NamesInUse&) = delete;
  NamesInUse& operator=(const NamesInUse&) = delete;

  std::vector<std::string>& Paths() { return names.Paths; }

 private:
  sigset_t before_{};
};

}  // namespace

void NoteTemporary(const std::filesystem::path& path) {
  NamesInUse().Paths().push_back(path.native());
}

void ForgetTemporary(const std::filesystem::path& path) {
  NamesInUse use;
  const auto found = std::ranges::find(use.Paths(), path.native());
  if (found != use.Paths().end()) use.Paths().erase(found);
}

bool IsTemporary(const std::filesystem::path& path) {
  NamesInUse use;
  return std::ranges::find(use.Paths(), path.native()) != use.Paths().end();
}

void RemoveTemporaries() noexcept {
  // Another signal within this one's handler must not wait for it.
  if (names.Ending.exchange(true)) return;
  while (names.Busy.test_and_set(std::memory_order_acquire)) sched_yield();
  for (auto path = names.Paths.rbegin(); path != names.Paths.rend(); ++path)
    if (::unlink(path->c_str()) != 0) ::rmdir(path->c_str());
}

}  // namespace korv
