#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "tests/engine/counting_world.h"

// Texts long enough to be counted on several threads, against the naive model: few different words and
// short phrases keep the model's table small.

namespace korv {
namespace {

using Kind = CountingWorld::Step::Kind;

struct Shape {
  const char* Name;
  size_t Words;
  int Vocabulary;  ///< The model's table grows with its power.
  int MinWords;
  int MaxWords;
  int WordsPerBreak;  ///< On average; 0 for none.
  int WordsPerFile;   ///< 0 for a single file.
  bool Lists;
};

CountingWorld WorldOf(const Shape& shape, unsigned seed) {
  static const std::vector<std::string> vocabulary = {"the", "cat",  "he",   "them", "côte", "cote", "Cote",
                                                      "e",   "year", "t-he", "hen",  "ca",   "at",   "ße"};
  CountingWorld world;
  world.Rules.CaseSignificant = true;
  world.Rules.IgnoreShortWords = false;
  world.Options.MinWords = shape.MinWords;
  world.Options.MaxWords = shape.MaxWords;
  if (shape.WordsPerFile > 0) {
    world.Options.SourceKind = TextSource::Folder;
    world.Order = ChainOrder::ByFiles;
  }
  if (shape.Lists) {
    world.Entries.FileWordsToIgnore = {"the", "he", "e"};
    world.Entries.CountOnly = {"c~", "the he", "<^y>", "at ~ at"};
    world.Entries.CaseSignificant = true;
  }
  std::mt19937 random(seed);
  const auto below = [&](int n) { return static_cast<size_t>(random() % static_cast<unsigned>(n)); };
  for (size_t i = 0; i < shape.Words; ++i) {
    if (shape.WordsPerFile > 0 && below(shape.WordsPerFile) == 0) {
      world.Steps.push_back({Kind::NextFile, std::to_string(i)});
    }
    if (shape.WordsPerBreak > 0 && below(shape.WordsPerBreak) == 0) {
      world.Steps.push_back({Kind::EndOfPhrase, ""});
    }
    // The smaller of two: some words are much more frequent than others.
    world.Steps.push_back(
        {Kind::Word, vocabulary[std::min(below(shape.Vocabulary), below(shape.Vocabulary))]});
  }
  return world;
}

TEST(CountingLargeTexts, AgreesWithTheModel) {
  const Shape shapes[] = {
      {"pairs", 120000, 14, 2, 2, 0, 0, false},
      {"with breaks", 60000, 8, 2, 3, 10, 0, false},
      {"in one long phrase", 40000, 2, 2, 7, 0, 0, false},
      {"in files", 60000, 8, 2, 3, 50, 300, false},
      {"with lists", 40000, 10, 2, 3, 30, 0, true},
      {"in files with lists", 40000, 8, 2, 3, 30, 700, true},
      {"all lengths of one word", 30000, 1, 2, 25, 5000, 0, false},
      {"short runs of two words", 30000, 2, 2, 25, 3, 0, false},
  };
  for (const Shape& shape : shapes) {
    SCOPED_TRACE(shape.Name);
    const CountingWorld world = WorldOf(shape, 1);
    const CountingOutcome model = ModelOutcome(world);
    EXPECT_FALSE(model.Listed.empty());
    NoYielder yielder;
    EXPECT_TRUE(EngineOutcome(world, yielder) == model);
  }
}

/// The limit of characters shortens the phrase that begins with the long word; those that begin before it
/// have their limit from there, wherever the places lie.
TEST(CountingLargeTexts, TheLimitOfCharactersHoldsForPlacesBeforeTheOneThatItShortens) {
  const std::string longWord(60, 'x');
  const std::string longWordBehind(60, 'y');
  for (size_t before = 0; before < 64; ++before) {
    SCOPED_TRACE(before);
    CountingWorld world;
    world.Rules.CaseSignificant = true;
    world.Rules.IgnoreShortWords = false;
    world.Rules.IgnoreRepetitions = false;
    world.Rules.LongWordSize = 80;
    world.Options.MinWords = 2;
    world.Options.MaxWords = 25;
    for (size_t i = 0; i < before; ++i) world.Steps.push_back({Kind::Word, "w" + std::to_string(i)});
    for (int times = 0; times < 2; ++times)
      for (const std::string& word : {std::string("a"), std::string("b"), std::string("c"), std::string("d"),
                                      longWord, longWordBehind, std::string("e"), std::to_string(times)})
        world.Steps.push_back({Kind::Word, word});
    const CountingOutcome model = ModelOutcome(world);
    ASSERT_EQ(model.Listed.size(), 2u) << model;
    NoYielder yielder;
    const CountingOutcome engine = EngineOutcome(world, yielder);
    ASSERT_TRUE(engine == model) << "model: " << model << "engine: " << engine;
  }
}

/// Asks for a stop at every so many turns, a few times.
class NowAndThen final : public Yielder {
 public:
  NowAndThen(int turns, int stops) : turns_(turns), stopsLeft_(stops) {}
  int StopsLeft() const { return stopsLeft_; }

 protected:
  void HandOver() override {
    if (stopsLeft_ == 0 || ++turn_ % turns_ != 0) return;
    --stopsLeft_;
    RequestStop();
  }
  uint32_t NextStride() override {
    HandOver();
    return 1;
  }

 private:
  int turns_;
  int stopsLeft_;
  int turn_ = 0;
};

TEST(CountingLargeTexts, AgreesWithTheModelAfterStops) {
  const CountingWorld world = WorldOf({"", 30000, 8, 2, 3, 30, 300, true}, 2);
  const CountingOutcome model = ModelOutcome(world);
  for (int turns : {1, 2, 3, 7, 50}) {
    SCOPED_TRACE(turns);
    NowAndThen yielder(turns, 12);
    EXPECT_TRUE(EngineOutcome(world, yielder) == model);
    EXPECT_LT(yielder.StopsLeft(), 12);
  }
}

}  // namespace
}  // namespace korv
