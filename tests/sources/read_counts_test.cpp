#include "sources/read/read_counts.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "engine/counting/count_phrases.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_yielder.h"

namespace korv {
namespace {

/// Counts read from the bytes of a file.
struct ReadWorld {
  ReadWorld() {
    Options.MinWords = 2;
    Options.MaxWords = 3;
    Options.MinFrequency = 1;
  }

  std::optional<CountsError> Read(std::string bytes) {
    Files.Add("/c.tsv", std::move(bytes));
    auto file = Files.OpenForReading("/c.tsv");
    Lists = WordFilters(Entries);
    PhraseSums sums(Options, Lists, Table);
    Tally = {};
    NoYielder none;
    Yielder& yielder = Stops ? static_cast<korv::Yielder&>(*Stops) : none;
    auto error = ReadCounts(**file, sums, yielder, Tally, [](uint64_t) {});
    if (!error && !yielder.Stopped()) {
      EXPECT_TRUE(sums.Finish(none));
      SortPhrases(Table, none);
    }
    return error;
  }

  /// "phrase=count" of the table, in its order.
  std::vector<std::string> Phrases() const {
    std::vector<std::string> phrases;
    for (const PhraseIndex i : Table.All())
      phrases.push_back(Table.Text(i) + "=" + std::to_string(Table.Count(i)));
    return phrases;
  }

  FakeFiles Files;
  RunOptions Options;
  WordFilterSpec Entries;
  WordFilters Lists;
  PhraseTable Table;
  CountsTally Tally;
  korv::Yielder* Stops = nullptr;
};

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ReadCounts, ReadsWhatIsACount) {
  struct Case {
    const char* Name;
    const char* Bytes;
    std::vector<std::string> Phrases;
  };
  const Case cases[] = {
      {"two columns", "b a\t2\na b\t1\n", {"a b=1", "b a=2"}},
      {"repeated phrases", "a b\t2\nc d\t1\na b\t3\n", {"a b=5", "c d=1"}},
      {"no line end at the end", "a b\t2", {"a b=2"}},
      {"CR LF", "a b\t2\r\nc d\t1\r\n", {"a b=2", "c d=1"}},
      {"a heading", "phrase\tfrequency\na b\t2\n", {"a b=2"}},
      {"a heading with other columns",
       "rank\tfrequency\tx\tphrase\ty\n1\t2\t\ta b\tz\n1\t2\t\tc d\n",
       {"a b=2", "c d=2"}},
      {"a signature", "\xEF\xBB\xBFphrase\tfrequency\na b\t2\n", {"a b=2"}},
      {"comments", "# made by hand\n#\nphrase\tfrequency\n# more\na b\t2\n", {"a b=2"}},
      {"a word that begins like a comment", "#tag b\t2\n", {"#tag b=2"}},
      {"words as they are",
       "The CAT\t1\n\xC3\xA9t\xC3\xA9 \xC3\x89T\xC3\x89\t2\n",
       {"\xC3\xA9t\xC3\xA9 \xC3\x89T\xC3\x89=2", "The CAT=1"}},
      {"other lengths", "a\t7\na b c d\t7\na b c\t1\n", {"a b c=1"}},
      {"the greatest frequency", "a b\t2147483646\na b\t1\n", {"a b=2147483647"}},
      {"zeros in front", "a b\t007\n", {"a b=7"}},
      {"nothing", "", {}},
      {"a heading alone", "phrase\tfrequency\n", {}},
  };
  for (const Case& c : cases) {
    ReadWorld world;
    const auto error = world.Read(c.Bytes);
    EXPECT_FALSE(error) << c.Name;
    EXPECT_EQ(world.Phrases(), c.Phrases) << c.Name;
  }
}

TEST(ReadCounts, RefusesTheFirstLineThatIsNone) {
  const std::string longLine(kMostCountLine + 1, 'x');
  struct Case {
    const char* Name;
    std::string Bytes;
    uint64_t Line;
    CountsFault Fault;
  };
  const Case cases[] = {
      {"one cell", "a b\n", 1, CountsFault::MissingCells},
      {"three cells without a heading", "a b\t1\nc d\t1\t\n", 2, CountsFault::MissingCells},
      {"fewer cells than the heading", "x\tphrase\tfrequency\ny\ta b\n", 2, CountsFault::MissingCells},
      {"an empty line", "a b\t1\n\nc d\t1\n", 2, CountsFault::MissingCells},
      {"no number", "a b\tmany\n", 1, CountsFault::NoFrequency},
      {"zero", "a b\t0\n", 1, CountsFault::NoFrequency},
      {"less than zero", "a b\t-1\n", 1, CountsFault::NoFrequency},
      {"a fraction", "a b\t1.5\n", 1, CountsFault::NoFrequency},
      {"blanks", "a b\t 1\n", 1, CountsFault::NoFrequency},
      {"an empty frequency", "a b\t\n", 1, CountsFault::NoFrequency},
      {"too large", "a b\t2147483648\n", 1, CountsFault::NoFrequency},
      {"far too large", "a b\t99999999999999999999\n", 1, CountsFault::NoFrequency},
      {"a frequency of another length", "a\tx\n", 1, CountsFault::NoFrequency},
      {"a sum that is too large", "a b\t2147483647\nc d\t1\na b\t1\n", 3, CountsFault::SumTooLarge},
      {"two blanks", "a  b\t1\n", 1, CountsFault::NoPhrase},
      {"a blank in front", " a b\t1\n", 1, CountsFault::NoPhrase},
      {"a blank behind", "a b \t1\n", 1, CountsFault::NoPhrase},
      {"no phrase", "\t1\n", 1, CountsFault::NoPhrase},
      {"a control character", "a\x01 b\t1\n", 1, CountsFault::NoPhrase},
      {"no UTF-8", "a\xFF b\t1\n", 1, CountsFault::NoPhrase},
      {"comments count as lines", "# x\n# y\na b\tx\n", 3, CountsFault::NoFrequency},
      {"a line that is too long", "a b\t1\n" + longLine + "\n", 2, CountsFault::LineTooLong},
      {"the last line, too long", longLine, 1, CountsFault::LineTooLong},
  };
  for (const size_t piece : {size_t{1}, size_t{7}, SIZE_MAX}) {
    for (const Case& c : cases) {
      if (piece == 1 && c.Bytes.size() > 1000) continue;
      ReadWorld world;
      world.Files.ReadInPiecesOf(piece);
      const auto error = world.Read(c.Bytes);
      ASSERT_TRUE(error) << c.Name;
      EXPECT_EQ(error->Line, c.Line) << c.Name;
      EXPECT_EQ(error->Fault, c.Fault) << c.Name;
    }
  }
}

TEST(ReadCounts, TellsWhatWasLeftOut) {
  ReadWorld world;
  const std::string w60(60, 'w');
  EXPECT_FALSE(world.Read("a\t1\na b\t2\na b c d\t5\n" + w60 + " " + w60 + "\t4\n"));
  EXPECT_EQ(world.Tally.Counts, 4u);
  EXPECT_EQ(world.Tally.OtherLengths, 2u);
  EXPECT_EQ(world.Table.LongPhrases(), 4u);
  EXPECT_EQ(world.Table.Occurrences(), 2u);
  EXPECT_EQ(world.Table.PhraseCount(), 1u);
}

TEST(ReadCounts, ListsOfTheRunHold) {
  struct Case {
    IgnoreRule Mode;
    std::vector<std::string> Phrases;
  };
  const Case cases[] = {
      {IgnoreRule::Allow, {"cat sat=4", "of cat=2", "of the=1", "The of=3"}},
      {IgnoreRule::ExcludeAll, {"cat sat=4", "of cat=2"}},
      {IgnoreRule::ExcludeWith, {"cat sat=4"}},
  };
  for (const Case& c : cases) {
    ReadWorld world;
    world.Options.IgnoreMode = c.Mode;
    world.Entries.FileWordsToIgnore = {"of", "the"};
    EXPECT_FALSE(world.Read("of the\t1\nof cat\t2\nThe of\t3\ncat sat\t4\n"));
    EXPECT_EQ(world.Phrases(), c.Phrases);
    uint64_t occurrences = 0;
    for (const PhraseIndex i : world.Table.All()) occurrences += world.Table.Count(i);
    EXPECT_EQ(world.Table.Occurrences(), occurrences) << "those that count";
  }
  ReadWorld only;
  only.Entries.CountOnly = {"sat", "of the"};
  EXPECT_FALSE(only.Read("of the\t1\nof cat\t2\ncat sat\t4\n"));
  EXPECT_THAT(only.Phrases(), ElementsAre("cat sat=4", "of the=1"));
}

TEST(ReadCounts, AWordThatWouldHaveBeenRemovedIsRefused) {
  ReadWorld world;
  world.Options.IgnoreMode = IgnoreRule::Remove;
  world.Entries.FileWordsToIgnore = {"the"};
  const auto error = world.Read("a b\t1\nb The\t1\n");
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Line, 2u);
  EXPECT_EQ(error->Fault, CountsFault::HoldsWordToRemove);
  world.Entries.FileWordsToIgnore = {"dog"};
  EXPECT_FALSE(world.Read("a b\t1\nb The\t1\nthe\t1\n"));
}

TEST(ReadCounts, AFileThatCannotBeReadIsTold) {
  ReadWorld world;
  world.Files.FailCall(2);
  const auto error = world.Read("a b\t1\n");
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Fault, CountsFault::Unreadable);
  EXPECT_EQ(error->Description, "Input/output error");
}

/// `count` phrases in no order.
std::string ManyCounts(int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) {
    const int k = i * 7919 % count;
    bytes +=
        "w" + std::to_string(k % 97) + " v" + std::to_string(k / 97) + "\t" + std::to_string(k + 1) + "\n";
  }
  return bytes;
}

TEST(ReadCounts, ManyPhrasesAddUpHoweverTheTableGrows) {
  constexpr int kMany = 40009;
  ReadWorld world;
  EXPECT_FALSE(world.Read(ManyCounts(kMany) + ManyCounts(kMany)));
  ASSERT_EQ(world.Table.EntryCount(), static_cast<uint32_t>(kMany));
  std::string before;
  for (const PhraseIndex i : world.Table.All()) {
    const std::string text = world.Table.Text(i);
    EXPECT_LT(before, text);
    before = text;
    const size_t blank = text.find(' ');
    const int k = std::stoi(text.substr(blank + 2)) * 97 + std::stoi(text.substr(1, blank - 1));
    ASSERT_EQ(world.Table.Count(i), 2 * (static_cast<uint32_t>(k) + 1)) << text;
  }
}

TEST(ReadCounts, WhatWasStoppedCanBeTakenUpAgain) {
  ReadWorld whole;
  const std::string bytes = ManyCounts(3001);
  EXPECT_FALSE(whole.Read(bytes));
  const std::vector<std::string> expected = whole.Phrases();
  bool stopped = true;
  for (uint64_t call = 1; stopped; ++call) {
    ReadWorld world;
    world.Entries.CountOnly = {"w~"};
    world.Files.Add("/c", bytes);
    auto file = world.Files.OpenForReading("/c");
    world.Lists = WordFilters(world.Entries);
    PhraseSums sums(world.Options, world.Lists, world.Table);
    NoYielder none;
    EXPECT_FALSE(ReadCounts(**file, sums, none, world.Tally, [](uint64_t) {}));
    FakeYielder yielder;
    yielder.StopAtCall(call);
    stopped = !sums.Finish(yielder);
    if (stopped) {
      EXPECT_TRUE(sums.Finish(none)) << call;
    }
    SortPhrases(world.Table, none);
    EXPECT_EQ(world.Phrases(), expected) << call;
  }
}

TEST(ReadCounts, EndsSoonAfterAStop) {
  FakeYielder stops;
  stops.RequestStop();
  ReadWorld world;
  world.Stops = &stops;
  EXPECT_FALSE(world.Read("a b\t1\nno count\n"));
  EXPECT_EQ(world.Tally.Counts, 0u);
}

}  // namespace
}  // namespace korv
