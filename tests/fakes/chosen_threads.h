#pragma once

#include <cstddef>

#include "base/workers.h"
#include "base/yielder.h"

namespace korv {

/// For loops that keep nothing alive.
class QuietYielder : public Yielder {
 protected:
  void HandOver() override {}
};

/// Another yielder, whose loops have so many threads.
template <typename Base = QuietYielder>
class WithThreads : public Base, public ThreadChoice {
 public:
  template <typename... Args>
  explicit WithThreads(size_t threads, Args... args) : Base(args...), threads_(threads) {}
  size_t Threads() const override { return threads_; }

 private:
  size_t threads_;
};

}  // namespace korv
