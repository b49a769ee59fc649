#pragma once

#include <rapidcheck.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/yielder.h"
#include "engine/counting/phrase_table.h"
#include "report/run_summary.h"
#include "tests/engine/counting_world.h"

namespace korv {

/// A world whose second half, from a file on, is side B.
struct TwoSides {
  CountingWorld Both;
  CountingWorld A;
  CountingWorld B;
};

inline TwoSides DrawSides(const WorldKind& kind) {
  TwoSides sides;
  sides.Both = DrawWorld(kind);
  sides.Both.Options.KeepPlaces = true;
  using Step = CountingWorld::Step;
  std::vector<Step>& steps = sides.Both.Steps;
  // Without a word on each side there is nothing to compare.
  const std::vector<Step> border = {
      {Step::Kind::Word, "he"}, {Step::Kind::NextFile, "b"}, {Step::Kind::Word, "x1"}};
  const int most = static_cast<int>(steps.size());
  const auto before = *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, most + 1));
  steps.insert(steps.begin() + before, border.begin(), border.end());
  const auto at = before + 1;
  sides.A = sides.Both;
  sides.A.Steps.assign(steps.begin(), steps.begin() + at);
  sides.B = sides.Both;
  sides.B.Steps.assign(steps.begin() + at + 1, steps.end());
  return sides;
}

/// Both sides, as a run that compares counts them.
struct ComparedByEngine {
  explicit ComparedByEngine(const TwoSides& sides)
      : Lists(std::make_unique<WordFilters>(sides.Both.Entries)) {
    CorpusBuilder builder(sides.Both.Rules, sides.Both.Options, *Lists);
    Feed(sides.A, builder);
    const WordCounts ofA = builder.Counts();
    builder.BeginSecondSide();
    Feed(sides.B, builder);
    Facts.Options = sides.Both.Options;
    Facts.Words = builder.Counts();
    Facts.SecondSide = SecondSide{.Words = Facts.Words - ofA};
    NoYielder yielder;
    TakeText(std::move(builder), Table);
    CountPhrases(Table, yielder, sides.Both.PlacesAtOnce);
    SortPhrases(Table, yielder);
    ListByFrequency(Table, Facts.Options.MinFrequency);
    if (!Facts.Options.KeepRedundant) ExcludeContainedPhrases(Table, yielder);
    SetUpFrequencyChain(Table, sides.Both.Order, yielder);
  }

  std::unique_ptr<WordFilters> Lists;
  RunSummary Facts;
  PhraseTable Table;
};

}  // namespace korv
