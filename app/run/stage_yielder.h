#pragma once

#include <functional>
#include <utility>

#include "base/yielder.h"

namespace korv {

/// The yielder of one stage of a run. A stop that is requested of the run's own yielder is first put to
/// `goesOn`, on the thread that yields, while the stage stands where it is. Its work is not lost when the
/// user wants what was found: the stage goes on from there.
class StageYielder final : public Yielder {
 public:
  /// `run` outlives the object. `goesOn` takes the request back and says whether the stage is to be finished.
  StageYielder(Yielder& run, std::function<bool()> goesOn) : run_(run), goesOn_(std::move(goesOn)) {}

 protected:
  /// The run's yielder has the turns.
  void HandOver() override {}
  uint32_t NextStride() override {
    run_.YieldNow();
    if (run_.Stopped() && !Stopped() && !goesOn_()) RequestStop();
    return Yielder::NextStride();
  }

 private:
  Yielder& run_;
  std::function<bool()> goesOn_;
};

}  // namespace korv
