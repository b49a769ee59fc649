#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <utility>
#include <vector>

#include "tests/engine/counting_world.h"

// The engine against the naive model, on thousands of small worlds. RC_PARAMS chooses seed and number of
// worlds; a failure prints the string that repeats it.

namespace korv {
namespace {

void CheckWorld(const CountingWorld& world, Yielder& yielder) {
  RC_LOG() << world << '\n';
  const CountingOutcome model = ModelOutcome(world);
  const CountingOutcome engine = EngineOutcome(world, yielder);
  RC_TAG(engine.Listed.empty() ? "nothing listed" : "phrases listed");
  RC_ASSERT(engine == model);
}

void CheckKind(const WorldKind& kind) {
  NoYielder yielder;
  CheckWorld(DrawWorld(kind), yielder);
}

/// Asks for a stop at one call of Yield(), counted from the last stop.
class StoppingYielder final : public Yielder {
 public:
  explicit StoppingYielder(std::vector<int> stops) : stops_(std::move(stops)) {}

 protected:
  void HandOver() override {
    if (stops_.empty() || ++calls_ <= stops_.back()) return;
    stops_.pop_back();
    calls_ = 0;
    RequestStop();
  }
  uint32_t NextStride() override {
    HandOver();
    return 1;
  }

 private:
  std::vector<int> stops_;
  int calls_ = 0;
};

RC_GTEST_PROP(CountingProperties, PhrasesOfShortLengths, ()) {
  CheckKind({.MostWords = 6});
}

RC_GTEST_PROP(CountingProperties, PhrasesOfAllLengths, ()) {
  CheckKind({});
}

RC_GTEST_PROP(CountingProperties, WordRules, ()) {
  CheckKind({.Rules = true, .MostWords = 6});
}

RC_GTEST_PROP(CountingProperties, WordsToIgnoreAndCountOnlyEntries, ()) {
  CheckKind({.Lists = true, .MostWords = 8});
}

RC_GTEST_PROP(CountingProperties, Folders, ()) {
  CheckKind({.Folder = true, .MostWords = 8});
}

RC_GTEST_PROP(CountingProperties, EverythingTogether, ()) {
  CheckKind({.Lists = true, .Rules = true, .Folder = true});
}

RC_GTEST_PROP(CountingProperties, SingleWords, ()) {
  CheckKind({.Lists = true, .Rules = true, .Folder = true, .SingleWords = true});
}

RC_GTEST_PROP(CountingProperties, AStopAtAnyMomentChangesNothingThatComesAfter, ()) {
  const CountingWorld world = DrawWorld({.Lists = true, .Folder = true, .MostWords = 8});
  StoppingYielder yielder(*rc::gen::container<std::vector<int>>(
      *rc::gen::inRange<size_t>(1, 6), rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, 12))));
  CheckWorld(world, yielder);
}

}  // namespace
}  // namespace korv
