#include "platform/posix/temporary_names.h"

#include <sched.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <utility>
#include <vector>

namespace korv {

namespace {

struct Noted {
  std::string Path;
  FileDescriptor Lock;
};

struct Names {
  std::atomic_flag Busy;
  std::atomic<bool> Ending{false};
  std::vector<Noted> All;
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

  std::vector<Noted>& All() { return names.All; }
  auto Find(const std::filesystem::path& path) {
    return std::ranges::find(names.All, path.native(), &Noted::Path);
  }

 private:
  sigset_t before_{};
};

}  // namespace

void NoteTemporary(const std::filesystem::path& path, FileDescriptor lock) {
  NamesInUse().All().push_back({path.native(), std::move(lock)});
}

void ForgetTemporary(const std::filesystem::path& path) {
  NamesInUse use;
  const auto found = use.Find(path);
  if (found != use.All().end()) use.All().erase(found);
}

bool IsTemporary(const std::filesystem::path& path) {
  NamesInUse use;
  return use.Find(path) != use.All().end();
}

void RemoveTemporaries() noexcept {
  // Another signal within this one's handler must not wait for it.
  if (names.Ending.exchange(true)) return;
  while (names.Busy.test_and_set(std::memory_order_acquire)) sched_yield();
  for (auto noted = names.All.rbegin(); noted != names.All.rend(); ++noted)
    if (::unlink(noted->Path.c_str()) != 0) ::rmdir(noted->Path.c_str());
}

}  // namespace korv
