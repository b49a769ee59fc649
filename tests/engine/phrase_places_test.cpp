#include "engine/corpus/phrase_places.h"

#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "engine/corpus/corpus_builder.h"
#include "engine/corpus/place_order.h"
#include "tests/engine/counting_world.h"
#include "tests/reference/naive_run.h"
#include "tests/reference/naive_text.h"

// Where phrases stand, by the corpus of a run and by looking everywhere.

namespace korv {
namespace {

using Words = std::vector<std::string>;
using Places = std::vector<size_t>;

Places Values(std::span<const Place> places) {
  Places values;
  for (const Place place : places) values.push_back(ValueOf(place));
  return values;
}

Places AsModel(std::span<const Place> places) {
  Places sorted = Values(places);
  std::ranges::sort(sorted);
  return sorted;
}

std::vector<WordNumber> NumbersOf(const Corpus& corpus, const Words& words) {
  std::vector<WordNumber> numbers;
  for (const std::string& word : words) numbers.push_back(corpus.Words.Find(word));
  return numbers;
}

std::string Joined(const Words& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

/// A counted table and the model of the same text.
struct CountedWorld {
  explicit CountedWorld(const CountingWorld& world)
      : Lists(world.Entries), Model(world.Rules, world.Options, world.Entries) {
    CorpusBuilder stream(world.Rules, world.Options, Lists);
    Feed(world, stream);
    Feed(world, Model);
    TakeText(std::move(stream), Table);
    NoYielder yielder;
    CountPhrases(Table, yielder);
    SortPhrases(Table, yielder);
  }

  WordFilters Lists;
  reference::CountingRun Model;
  PhraseTable Table;
};

/// Any phrase of the text, words that do not follow each other, or a word that the text does not have.
Words DrawPhrase(const Words& text) {
  const auto number = [](size_t least, size_t end) {
    return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(least, std::max(end, least + 1)));
  };
  Words phrase;
  const size_t begin = number(0, text.size());
  const size_t length = number(1, number(0, 3) == 0 ? 26 : 6);
  for (size_t k = begin; k < std::min(text.size(), begin + length); ++k)
    if (!text[k].empty()) phrase.push_back(text[k]);
  if (phrase.empty()) return {"nowhere"};
  if (number(0, 4) == 0) phrase[number(0, phrase.size())] = text[number(0, text.size())];
  if (number(0, 20) == 0) phrase.back() = "nowhere";
  std::erase(phrase, "");
  return phrase.empty() ? Words{"nowhere"} : phrase;
}

/// By token of the text: the place of its word among all words in their order; 0 where phrases end. Folded
/// once, for the orders compare a word many times.
std::vector<size_t> RanksOf(const Words& text) {
  using Key = std::pair<std::string, std::string>;
  std::map<std::string, Key> keys;
  for (const std::string& word : text)
    if (!word.empty()) keys.try_emplace(word, reference::FoldKey(reference::FoldAccents(word)), word);
  std::map<Key, size_t> ranks;
  for (const auto& [word, key] : keys) ranks[key] = 0;
  size_t rank = 0;
  for (auto& [key, ofKey] : ranks) ofKey = ++rank;
  std::vector<size_t> ofTokens;
  for (const std::string& word : text) ofTokens.push_back(word.empty() ? 0 : ranks[keys[word]]);
  return ofTokens;
}

/// Whether what stands to one side of `a` comes before what stands there of `b`: the nearest word first, up
/// to a phrase end.
bool SideComesBefore(const std::vector<size_t>& ranks, size_t a, size_t b, int step) {
  for (int k = 0; k < kMostWords; ++k) {
    const size_t ofA = a < ranks.size() ? ranks[a] : 0;
    const size_t ofB = b < ranks.size() ? ranks[b] : 0;
    if (ofA != ofB || ofA == 0) return ofA < ofB;
    a += static_cast<size_t>(step);
    b += static_cast<size_t>(step);
  }
  return false;
}

void CheckOrders(const Corpus& corpus, const std::vector<size_t>& ranks, const Places& places, size_t words) {
  const auto path = [&](size_t place) {
    const CorpusSource* of = nullptr;
    for (const CorpusSource& source : corpus.Sources)
      if (source.Begin <= place) of = &source;
    return of->Path;
  };
  NoYielder yielder;
  for (const PlaceOrder order : {PlaceOrder::Place, PlaceOrder::Left, PlaceOrder::Right, PlaceOrder::File}) {
    for (const bool fileByFile : {false, true}) {
      Places expected = places;
      std::ranges::stable_sort(expected, [&](size_t a, size_t b) {
        if ((fileByFile || order == PlaceOrder::File) && path(a) != path(b)) return path(a) < path(b);
        if (order == PlaceOrder::Left) return SideComesBefore(ranks, a - 1, b - 1, -1);
        if (order == PlaceOrder::Right) return SideComesBefore(ranks, a + words, b + words, 1);
        return false;
      });
      std::vector<Place> ordered;
      for (const size_t place : places) ordered.push_back(Place{static_cast<uint32_t>(place)});
      std::ranges::reverse(ordered);
      Places early;
      const size_t wanted = *rc::gen::resize(rc::kNominalSize, rc::gen::inRange<size_t>(0, 4));
      const FirstPlaces first{wanted, [&] { early = Values(std::span(ordered).first(wanted)); }};
      RC_ASSERT(OrderPlaces(corpus, static_cast<int>(words), order, fileByFile, yielder, ordered, first));
      RC_ASSERT(Values(ordered) == expected);
      // The first ones were right when they were told.
      RC_ASSERT(early.size() == (wanted < places.size() ? wanted : 0));
      RC_ASSERT(std::equal(early.begin(), early.end(), expected.begin()));
    }
  }
}

void CheckWorld(CountingWorld world) {
  world.Options.KeepPlaces = *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, 4)) > 0;
  RC_LOG() << world << '\n';
  CountedWorld counted(world);
  const Corpus& corpus = counted.Table.Corpus();
  const Words& text = counted.Model.Words();

  RC_ASSERT(corpus.Tokens.size() >= text.size());
  RC_ASSERT(counted.Table.Bytes() >=
            4 * (corpus.Tokens.size() + corpus.Places.size()) + 16 * counted.Table.EntryCount());
  for (size_t i = 0; i < corpus.Tokens.size(); ++i) {
    const WordNumber token = corpus.Tokens[i];
    RC_ASSERT((token == kNoWord ? "" : corpus.Words.Text(token)) == (i < text.size() ? text[i] : ""));
  }

  const bool keeps = KeepsPlaces(world.Options);
  const PhraseIndex last{std::min<uint32_t>(counted.Table.EntryCount(), 25)};
  for (const PhraseIndex i : IndexRange(PhraseIndex{1}, last)) {
    const Words phrase = reference::Split(counted.Table.Text(i), ' ');
    const Places places = reference::PlacesOf(text, phrase);
    RC_ASSERT(counted.Table.Count(i) == places.size());
    RC_ASSERT(AsModel(counted.Table.Places(i)) == (keeps ? places : Places{}));
    // What is an entry is found by halving.
    RC_ASSERT(SortedPlaces(corpus, NumbersOf(corpus, phrase)).has_value() == keeps);
  }
  const std::vector<size_t> ranks = RanksOf(text);
  bool halved = false;
  for (int times = 0; times < 10; ++times) {
    const Words phrase = DrawPhrase(text);
    const std::vector<WordNumber> numbers = NumbersOf(corpus, phrase);
    const Places places = reference::PlacesOf(text, phrase);
    RC_LOG() << "[" << Joined(phrase) << "]\n";
    RC_ASSERT(AsModel(PlacesOf(corpus, numbers)) == places);
    if (std::ranges::count(numbers, kNoWord) > 0) continue;
    RC_ASSERT(AsModel(ScanForPlaces(corpus, numbers)) == places);
    const auto sorted = SortedPlaces(corpus, numbers);
    halved = halved || sorted.has_value();
    if (sorted) RC_ASSERT(AsModel(*sorted) == places);
    CheckOrders(corpus, ranks, places, phrase.size());
  }
  RC_TAG(halved ? "some by halving" : "all by looking everywhere");
}

RC_GTEST_PROP(PhrasePlacesProperties, OfTextsWithoutLists, ()) {
  CheckWorld(DrawWorld({}));
}

RC_GTEST_PROP(PhrasePlacesProperties, OfTextsCutByRulesAndLists, ()) {
  CheckWorld(DrawWorld({.Lists = true, .Rules = true, .MostWords = 8}));
}

RC_GTEST_PROP(PhrasePlacesProperties, OfFolders, ()) {
  CheckWorld(DrawWorld({.Lists = true, .Folder = true, .MostWords = 8}));
}

RC_GTEST_PROP(PhrasePlacesProperties, OfSingleWords, ()) {
  CheckWorld(DrawWorld({.Lists = true, .Rules = true, .SingleWords = true}));
}

CountingWorld TheCatWorld() {
  CountingWorld world;
  world.Rules.IgnoreShortWords = false;
  world.Options.MinWords = 2;
  world.Options.MaxWords = 3;
  world.Options.MinFrequency = 2;
  world.Options.KeepPlaces = true;
  using Kind = CountingWorld::Step::Kind;
  for (const char* word : {"The", "cat", "sat", "/", "the", "cat", "sat", "on", "the", "cat"}) {
    if (*word == '/')
      world.Steps.push_back({Kind::EndOfPhrase, ""});
    else
      world.Steps.push_back({Kind::Word, word});
  }
  return world;
}

TEST(PhrasePlaces, AreFoundByHalvingFromTheLeastToTheMostWordsOfTheRun) {
  struct Case {
    const char* Name;
    Words Phrase;
    bool ByHalving;
    std::vector<size_t> Places;
  };
  const Case cases[] = {
      {"fewer words than the run counts", {"cat"}, false, {2, 6, 10}},
      {"the fewest words", {"the", "cat"}, true, {1, 5, 9}},
      {"the most words", {"the", "cat", "sat"}, true, {1, 5}},
      {"less often than a run lists", {"on", "the", "cat"}, true, {8}},
      {"more words than the run counts", {"cat", "sat", "on", "the"}, false, {6}},
      {"across a phrase end", {"sat", "the"}, true, {}},
      {"at the end of the text and past it", {"cat", "on"}, true, {}},
  };
  // The first token is a phrase end: "the" is number 1.
  CountedWorld counted(TheCatWorld());
  const Corpus& corpus = counted.Table.Corpus();
  for (const Case& c : cases) {
    const std::vector<WordNumber> numbers = NumbersOf(corpus, c.Phrase);
    EXPECT_EQ(SortedPlaces(corpus, numbers).has_value(), c.ByHalving) << c.Name;
    EXPECT_EQ(AsModel(PlacesOf(corpus, numbers)), c.Places) << c.Name;
  }
  EXPECT_TRUE(PlacesOf(corpus, NumbersOf(corpus, {"the", "dog"})).empty());
  EXPECT_TRUE(PlacesOf(corpus, {}).empty());
}

TEST(PhrasePlaces, AreNotKeptWhereNobodyAsksForThem) {
  CountingWorld world = TheCatWorld();
  world.Options.KeepPlaces = false;
  CountedWorld counted(world);
  EXPECT_TRUE(counted.Table.Corpus().Places.empty());
  EXPECT_TRUE(counted.Table.Places(PhraseIndex{1}).empty());
  EXPECT_EQ(AsModel(PlacesOf(counted.Table.Corpus(), NumbersOf(counted.Table.Corpus(), {"the", "cat"}))),
            (Places{1, 5, 9}));
}

TEST(PhrasePlaces, WordsAreFoundByTheirText) {
  // Words that share a Key, and words of the order's two ends.
  CountingWorld world;
  world.Rules.IgnoreShortWords = false;
  world.Rules.CaseSignificant = true;
  const Words words = {"cote", "Cote", "côte", "coté", "a", "zebra", "ÿ", "z"};
  for (const std::string& word : words) world.Steps.push_back({CountingWorld::Step::Kind::Word, word});
  CountedWorld counted(world);
  const Vocabulary& vocabulary = counted.Table.Corpus().Words;
  for (const std::string& word : words) {
    const WordNumber number = vocabulary.Find(word);
    ASSERT_NE(number, kNoWord) << word;
    EXPECT_EQ(vocabulary.Text(number), word);
  }
  for (const char* missing : {"", "cotes", "COTE", "zz", "ÿÿ", "0"})
    EXPECT_EQ(vocabulary.Find(missing), kNoWord) << missing;
  EXPECT_EQ(Vocabulary().Find("a"), kNoWord);
}

/// Many places are sorted piece by piece; neighbours tell whether the pieces were put together well.
TEST(OrderPlaces, OrdersManyPlaces) {
  CountingWorld world;
  world.Rules.IgnoreShortWords = false;
  constexpr uint32_t kWords = 200'000;
  uint32_t random = 1;
  for (uint32_t i = 0; i < kWords; ++i) {
    random = random * 1664525 + 1013904223;
    if (i % 1000 == 0) world.Steps.push_back({CountingWorld::Step::Kind::NextFile, std::to_string(random)});
    world.Steps.push_back({CountingWorld::Step::Kind::Word, random >> 30 != 0 ? "a" : "b"});
  }
  const WordFilters lists;
  CorpusBuilder stream(world.Rules, world.Options, lists);
  Feed(world, stream);
  PhraseTable table;
  TakeText(std::move(stream), table);
  NoYielder yielder;
  CountPhrases(table, yielder);
  const Corpus& corpus = table.Corpus();
  std::vector<WordNumber> phrase = {corpus.Words.Find("a")};
  const std::vector<Place> places = ScanForPlaces(corpus, phrase);
  ASSERT_GT(places.size(), 140'000u);
  const auto path = [&](Place at) -> const std::filesystem::path& {
    return corpus.Sources[corpus.SourceAt(at)].Path;
  };
  const auto inOrder = [&](Place a, Place b, PlaceOrder order, bool byFile) {
    if (byFile && path(a) != path(b)) return path(a) < path(b);
    const int step = order == PlaceOrder::Left ? -1 : order == PlaceOrder::Right ? 1 : 0;
    for (int k = 1; step != 0 && k <= kMostWords; ++k) {
      const WordNumber left = corpus.From(a)[k * step];
      const WordNumber right = corpus.From(b)[k * step];
      if (left != right) return left < right;
      if (left == kNoWord) break;
    }
    return a < b;
  };
  for (const PlaceOrder order : {PlaceOrder::Place, PlaceOrder::Left, PlaceOrder::Right, PlaceOrder::File}) {
    for (const bool fileByFile : {false, true}) {
      std::vector<Place> ordered(places.rbegin(), places.rend());
      ASSERT_TRUE(OrderPlaces(corpus, 1, order, fileByFile, yielder, ordered));
      for (size_t k = 1; k < ordered.size(); ++k)
        ASSERT_TRUE(inOrder(ordered[k - 1], ordered[k], order, fileByFile || order == PlaceOrder::File)) << k;
      std::ranges::sort(ordered);
      ASSERT_TRUE(ordered == places);
    }
  }
}

TEST(OrderPlaces, AStopEndsIt) {
  CountingWorld world;
  for (int i = 0; i < 10; ++i) world.Steps.push_back({CountingWorld::Step::Kind::Word, "whale"});
  const CountedWorld counted(world);
  const Corpus& corpus = counted.Table.Corpus();
  for (const PlaceOrder order : {PlaceOrder::Place, PlaceOrder::Left, PlaceOrder::Right, PlaceOrder::File}) {
    NoYielder yielder;
    yielder.RequestStop();
    std::vector<Place> places = ScanForPlaces(corpus, std::vector{corpus.Words.Find("whale")});
    EXPECT_FALSE(OrderPlaces(corpus, 1, order, false, yielder, places));
  }
}

}  // namespace
}  // namespace korv
