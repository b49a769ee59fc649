#include "engine/analysis/offered_phrases.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "engine/corpus/corpus_builder.h"
#include "tests/engine/counting_world.h"
#include "tests/reference/naive_offers.h"

namespace korv {
namespace {

template <typename Taker>
void TakeSteps(const CountingWorld& world, Taker& taker) {
  for (const CountingWorld::Step& step : world.Steps) {
    if (step.What == CountingWorld::Step::Kind::Word)
      taker.TakeWord(step.Text);
    else
      taker.ResetPhrases();
  }
}

struct Offer {
  WordFilters Lists;
  PhraseTable Table;
  OfferedPhrases Found;

  explicit Offer(const CountingWorld& world) : Lists(world.Entries) {
    CorpusBuilder stream(world.Rules, world.Options, Lists);
    stream.BeginSource("a.txt");
    TakeSteps(world, stream);
    TakeText(std::move(stream), Table);
    NoYielder yielder;
    CountPhrases(Table, yielder);
    EXPECT_TRUE(FindOfferedPhrases(Table, yielder, Found));
  }
};

void CheckKind(const WorldKind& kind) {
  const CountingWorld world = DrawWorld(kind);
  RC_LOG() << world << '\n';
  const Offer offer(world);
  reference::Offers model(world.Rules, world.Options, world.Entries);
  TakeSteps(world, model);
  const auto equal = [](uint64_t found, int64_t expected) {
    return found == static_cast<uint64_t>(expected);
  };
  RC_ASSERT(equal(offer.Found.Offered, model.Offered));
  RC_ASSERT(equal(offer.Found.TooLong, model.TooLong));
  RC_ASSERT(equal(offer.Found.AllIgnored, model.AllIgnored));
  RC_ASSERT(equal(offer.Found.NotCountOnly, model.NotCountOnly));
  RC_ASSERT(equal(offer.Found.WordsInRows, model.WordsInRows));
  RC_ASSERT(offer.Found.LongestRow == model.LongestRow);
  RC_ASSERT(offer.Found.Counted() == offer.Table.Occurrences());
}

RC_GTEST_PROP(OfferedPhrases, OfEveryLength, ()) {
  CheckKind({});
}

RC_GTEST_PROP(OfferedPhrases, OfOneWord, ()) {
  CheckKind({.Lists = true, .SingleWords = true});
}

RC_GTEST_PROP(OfferedPhrases, UnderRulesAndLists, ()) {
  CheckKind({.Lists = true, .Rules = true, .MostWords = 6});
}

TEST(OfferedPhrases, AStopEndsTheLook) {
  CountingWorld world;
  for (int i = 0; i < 10; ++i) world.Steps.push_back({CountingWorld::Step::Kind::Word, "whale"});
  Offer offer(world);
  class StopAtOnce final : public Yielder {
    void HandOver() override { RequestStop(); }
    uint32_t NextStride() override {
      HandOver();
      return 1;
    }
  } yielder;
  yielder.RequestStop();
  EXPECT_FALSE(FindOfferedPhrases(offer.Table, yielder, offer.Found));
  EXPECT_EQ(offer.Found.Offered, 0U);
}

TEST(OfferedPhrases, ATableFilledByHandOffersNothing) {
  PhraseTable table;
  table.AddWordToList("the cat");
  NoYielder yielder;
  OfferedPhrases offered;
  EXPECT_TRUE(FindOfferedPhrases(table, yielder, offered));
  EXPECT_EQ(offered.Offered, 0U);
}

}  // namespace
}  // namespace korv
