#pragma once

#include "base/yielder.h"

namespace korv {

/// While it lives, the terminal's interrupt (Ctrl-C) requests a stop, and so does, where there is such a
/// thing, the system's request to end. The first one does; a second one ends the program at once and in the
/// system's own way, whatever has become of the stop. Before the program ends like that, by a reader of its
/// output that went away or by Ctrl-\, its temporary files are removed where the system allows it. A file
/// that outgrows its limit is an error of the write and no end. One object at a time; the yielder must
/// outlive it.
class InterruptGuard {
 public:
  explicit InterruptGuard(Yielder& yielder);
  ~InterruptGuard();
  InterruptGuard(const InterruptGuard&) = delete;
  InterruptGuard& operator=(const InterruptGuard&) = delete;
};

}  // namespace korv
