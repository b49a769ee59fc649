#pragma once

#include "platform/yielder.h"

namespace korv {

/// While it lives, the terminal's interrupt (Ctrl-C) requests a stop, and so does, where there is such a
/// thing, the system's request to end. One that comes while the stop before it is still pending ends the
/// program as usual; after ClearStop() it is a new request. One object at a time; the yielder must outlive
/// it.
class InterruptGuard {
 public:
  explicit InterruptGuard(Yielder& yielder);
  ~InterruptGuard();
  InterruptGuard(const InterruptGuard&) = delete;
  InterruptGuard& operator=(const InterruptGuard&) = delete;
};

}  // namespace korv
