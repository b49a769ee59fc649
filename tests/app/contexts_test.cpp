#include "app/contexts/context_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "app/contexts/context_copy.h"
#include "app/contexts/context_texts.h"
#include "sources/places/phrase_cut.h"
#include "tests/app/run_world.h"
#include "tests/fakes/fake_event_loop.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::ElementsAre;

/// A counted run whose contexts are wanted.
struct ContextsWorld : RunWorld {
  ContextsWorld() {
    Encodings = EncodingChooser(EncodingChoice::Utf8);
    Request.Options.KeepPlaces = true;
    Request.Rules.IgnoreShortWords = false;
    UseLengths(2, 3, 1);
  }

  std::shared_ptr<const CountedRun> Shared() const { return {std::shared_ptr<void>(), &Run}; }
  ContextQuery QueryOf(const std::string& phrase) const {
    return {.Words = CutTypedPhrase(phrase, Run.Table.Corpus()).Words};
  }
  std::shared_ptr<const ContextList> Find(const ContextQuery& query, size_t first = 0) {
    std::shared_ptr<const ContextList> found;
    EXPECT_TRUE(FindContexts(Shared(), query, first, Yielder, [&](auto list) { found = list; }));
    return found;
  }
  void UseTwoFiles() {
    Files.Add("/t/b.txt", "One big cat, two.\nThe Big Cat!\n");
    Files.Add("/t/sub/a.txt", "a big cat sat\n");
    Request.IncludeSubfolders = true;
    UseFolder("/t");
    ASSERT_EQ(Count(), RunEnd::Counted);
  }

  FakeEventLoop Loop;
  ContextRows Rows{Loop, Files};

  /// Reads these rows and shows them as "left [phrase] right (place)", headings as "name: count".
  std::vector<std::string> Read(const std::shared_ptr<const ContextList>& list) {
    Rows.Show(list);
    Rows.Want(list->Places(), {});
    EXPECT_TRUE(Loop.RunUntil([this] { return Rows.Idle(); }));
    std::vector<std::string> rows;
    for (size_t row = 0; row < list->Rows(); ++row) {
      if (const auto at = list->PlaceAt(row)) {
        EXPECT_EQ(list->RowOf(*at), row);
        const Place place = list->Places()[*at];
        const PlaceInText text = Rows.Text(place).Text;
        rows.push_back(text.Left + " [" + text.Phrase + "] " + text.Right + " (" +
                       PlaceName(Run, Run.Table.Corpus().SourceAt(place), text.Line) + ")");
      } else {
        const ContextList::Heading heading = list->HeadingAt(row);
        rows.push_back(NameOfText(Run, heading.Source) + ": " + std::to_string(heading.Count));
      }
    }
    return rows;
  }
};

TEST(Contexts, StandAsTheFilesHaveThemInEveryOrder) {
  struct Case {
    PlaceOrder Order;
    bool FileByFile;
    std::vector<std::string> Rows;
  };
  const std::string one = "One [big cat] , two. The Big Cat! (b.txt:1)";
  const std::string two = "One big cat, two. The [Big Cat] ! (b.txt:2)";
  const std::string three = Native("a [big cat] sat (sub/a.txt:1)");
  const Case cases[] = {
      {PlaceOrder::Place, false, {one, two, three}},
      {PlaceOrder::Left, false, {three, one, two}},
      {PlaceOrder::Right, false, {two, three, one}},
      {PlaceOrder::File, false, {one, two, three}},
      {PlaceOrder::Place, true, {"b.txt: 2", one, two, Native("sub/a.txt: 1"), three}},
      {PlaceOrder::Right, true, {"b.txt: 2", two, one, Native("sub/a.txt: 1"), three}},
  };
  ContextsWorld world;
  world.UseTwoFiles();
  for (const Case& c : cases) {
    ContextQuery query = world.QueryOf("big cat");
    query.Order = c.Order;
    query.FileByFile = c.FileByFile;
    EXPECT_EQ(world.Read(world.Find(query)), c.Rows) << static_cast<int>(c.Order) << c.FileByFile;
  }
}

TEST(Contexts, OfAnyPhraseListedOrNot) {
  ContextsWorld world;
  world.UseTwoFiles();
  EXPECT_THAT(world.Read(world.Find(world.QueryOf("TWO"))),
              ElementsAre("One big cat, [two] . The Big Cat! (b.txt:1)"));
  EXPECT_EQ(world.Find(world.QueryOf("big dog"))->Rows(), 0U);
  EXPECT_EQ(world.Find(world.QueryOf(""))->Rows(), 0U);
}

TEST(Contexts, AreThoseOfTheRunAtOnceAndWhereAFileIsGoneOrChanged) {
  ContextsWorld world;
  world.UseTwoFiles();
  const auto list = world.Find(world.QueryOf("big cat"));
  world.Rows.Show(list);
  const ContextText early = world.Rows.Text(list->Places()[0]);
  EXPECT_FALSE(early.FromFile);
  EXPECT_EQ(early.Text.Right, "two | the big cat |");
  EXPECT_EQ(early.Text.Line, 0U);
  world.Files.Erase("/t/b.txt");
  world.Files.Add("/t/sub/a.txt", "a big dog sat\n");
  EXPECT_THAT(world.Read(list), ElementsAre("one [big cat] two | the big cat | (b.txt:0)",
                                            "one big cat two | the [big cat] | (b.txt:0)",
                                            Native("a [big cat] sat (sub/a.txt:0)")));
  EXPECT_EQ(ChangedTextsText(world.Run, world.Rows.Changed(), {}),
            "2 files have changed since they were counted or cannot be read any more: "
            "the words that were counted stand for their lines.");
  EXPECT_EQ(ChangedTextsText(world.Run, {{0, PlaceFault::Unreadable}}, {}),
            "b.txt cannot be read any more: the words that were counted stand for its lines.");
  EXPECT_EQ(ChangedTextsText(world.Run, {{1, PlaceFault::Changed}}, {}),
            Native("sub/a.txt") +
                " has changed since it was counted: the words that were counted stand for its lines.");
}

TEST(Contexts, OfTheClipboardStandAsItHadThem) {
  ContextsWorld world;
  world.UseClipboard("The BIG,\r\ncat");
  world.Request.Rules.TerminateAtComma = false;
  ASSERT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_THAT(world.Read(world.Find(world.QueryOf("big cat"))),
              ElementsAre("The [BIG,\ncat]  (Clipboard:1)"));
}

TEST(Contexts, HaveAsManyCharactersOnEachSideAsIsWished) {
  ContextsWorld world;
  world.UseTwoFiles();
  const auto list = world.Find(world.QueryOf("big cat"));
  world.Read(list);
  world.Rows.SetAround(5);
  EXPECT_EQ(world.Read(list)[0], "One [big cat] , (b.txt:1)");
}

TEST(Contexts, TheFirstOnesComeBeforeAllAreSorted) {
  ContextsWorld world;
  std::string text;
  for (int i = 0; i < 100; ++i) text += std::string("big cat ") + static_cast<char>('a' + i % 26) + ".\n";
  world.UseFile("/t/a.txt", text);
  ASSERT_EQ(world.Count(), RunEnd::Counted);
  for (const PlaceOrder order : {PlaceOrder::Place, PlaceOrder::Left, PlaceOrder::Right, PlaceOrder::File}) {
    ContextQuery query = world.QueryOf("big cat");
    query.Order = order;
    std::vector<std::shared_ptr<const ContextList>> told;
    ASSERT_TRUE(FindContexts(world.Shared(), query, 10, world.Yielder,
                             [&](std::shared_ptr<const ContextList> list) { told.push_back(list); }));
    ASSERT_EQ(told.size(), 2U);
    EXPECT_FALSE(told[0]->Whole());
    EXPECT_EQ(told[0]->Places().size(), 10U);
    EXPECT_EQ(told[0]->Occurrences(), 100U);
    EXPECT_TRUE(told[1]->Whole());
    EXPECT_EQ(told[1]->Places().size(), 100U);
    EXPECT_TRUE(std::equal(told[0]->Places().begin(), told[0]->Places().end(), told[1]->Places().begin()));
  }
}

TEST(Contexts, ASampleIsDrawnByItsSeed) {
  ContextsWorld world;
  std::string text;
  for (int i = 0; i < 3000; ++i) text += "big cat.\n";
  world.UseFile("/t/a.txt", text);
  ASSERT_EQ(world.Count(), RunEnd::Counted);
  ContextQuery query = world.QueryOf("big cat");
  const std::vector<Place> all = world.Find(query)->Places();
  query.SampleSeed = 7;
  const auto sample = world.Find(query);
  EXPECT_EQ(sample->Places().size(), kContextSample);
  EXPECT_TRUE(std::ranges::is_sorted(sample->Places()));
  EXPECT_EQ(std::set(sample->Places().begin(), sample->Places().end()).size(), kContextSample);
  EXPECT_TRUE(std::ranges::includes(all, sample->Places()));
  // Of every part of the text.
  for (size_t third = 0; third < 3; ++third)
    EXPECT_NEAR(
        static_cast<double>(std::ranges::count_if(
            sample->Places(),
            [&](Place place) { return place >= all[third * 1000] && place <= all[third * 1000 + 999]; })),
        333, 60);
  EXPECT_EQ(world.Find(query)->Places(), sample->Places());
  EXPECT_EQ(OccurrencesText(*sample, {}), "1,000 of 3,000 occurrences, drawn at random (seed 7)");
  query.SampleSeed = 8;
  EXPECT_NE(world.Find(query)->Places(), sample->Places());
}

TEST(Contexts, AreCountedInWords) {
  ContextsWorld world;
  world.UseTwoFiles();
  const auto text = [&](const char* phrase) {
    return OccurrencesText(*world.Find(world.QueryOf(phrase)), {});
  };
  EXPECT_EQ(text("big cat"), "3 occurrences in 2 files");
  EXPECT_EQ(text("two"), "1 occurrence in 1 file");
  EXPECT_EQ(text("dog"), "No occurrence");
}

TEST(Contexts, AStopEndsTheSearch) {
  ContextsWorld world;
  world.UseTwoFiles();
  world.Yielder.RequestStop();
  int told = 0;
  EXPECT_FALSE(
      FindContexts(world.Shared(), world.QueryOf("big cat"), 0, world.Yielder, [&](const auto&) { ++told; }));
  EXPECT_EQ(told, 0);
}

TEST(Contexts, WhatIsWantedLastIsReadAndNoMoreIsKeptThanThereIsRoomFor) {
  ContextsWorld world;
  std::string text;
  for (size_t i = 0; i < ContextRows::kMostKept + 500; ++i) text += "The big cat.\n";
  world.UseFile("/t/a.txt", text);
  ASSERT_EQ(world.Count(), RunEnd::Counted);
  const auto list = world.Find(world.QueryOf("big cat"));
  world.Rows.Show(list);
  const std::vector<Place>& places = list->Places();
  world.Rows.Want({places[5]}, {places[6]});
  world.Rows.Want({places.begin(), places.begin() + 2}, {places[2]});
  ASSERT_TRUE(world.Loop.RunUntil([&] { return world.Rows.Idle(); }));
  EXPECT_EQ(world.Rows.Text(places[1]).Text.Line, 2U);
  EXPECT_TRUE(world.Rows.Text(places[2]).FromFile);
  EXPECT_FALSE(world.Rows.Text(places[5]).FromFile);
  world.Rows.Want({places.begin() + 3, places.end()}, {});
  ASSERT_TRUE(world.Loop.RunUntil([&] { return world.Rows.Idle(); }));
  EXPECT_FALSE(world.Rows.Text(places[0]).FromFile);
  EXPECT_TRUE(world.Rows.Text(places.back()).FromFile);
}

TEST(ContextCopy, HasARowForEachPlaceInTheOrderGiven) {
  ContextsWorld world;
  world.Files.Add("/t/a.txt", "if x < big cat & y\n\nbig\ncat");
  world.UseFolder("/t");
  world.Request.Rules.TerminateAtTab = false;
  ASSERT_EQ(world.Count(), RunEnd::Counted);
  const auto list = world.Find(world.QueryOf("big cat"));
  PlaceLocator locator(world.Run.Table.Corpus(), {world.Files, world.Messages, world.Yielder}, {});
  const ContextCopy copy =
      CopyContexts(*list, {list->Places()[1], list->Places()[0]}, 11, locator, world.Yielder);
  EXPECT_EQ(copy.Text,
            "file\tline\tleft\tphrase\tright\n"
            "a.txt\t3\tbig cat & y\tbig cat\t\n"
            "a.txt\t1\tif x <\tbig cat\t& y big cat\n");
  EXPECT_EQ(
      copy.Html,
      "<table><tr><th>file</th><th>line</th><th>left</th><th>phrase</th><th>right</th></tr>"
      "<tr><td>a.txt</td><td>3</td><td>big cat &amp; y</td><td>big cat</td><td></td></tr>"
      "<tr><td>a.txt</td><td>1</td><td>if x &lt;</td><td>big cat</td><td>&amp; y big cat</td></tr></table>");
}

}  // namespace
}  // namespace korv
