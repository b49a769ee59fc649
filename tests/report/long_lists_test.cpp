#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>

#include "report/columns/registry.h"
#include "report/list_words.h"
#include "report/row_maker.h"
#include "report/writers/table_forms.h"
#include "tests/fakes/chosen_threads.h"
#include "tests/report/report_world.h"

// Lists so long that threads make their rows, against the same rows made one by one. Sinks that take small
// pieces get them one by one.

namespace korv {
namespace {

constexpr size_t kSmallPieces = 1000;
constexpr size_t kLargePieces = size_t{1} << 16;

struct Listed {
  std::string Text;
  ListResult Result;
  bool operator==(const Listed& other) const {
    const ListResult& a = Result;
    const ListResult& b = other.Result;
    return Text == other.Text && a.Outcome == b.Outcome && a.Phrases == b.Phrases &&
           a.Occurrences == b.Occurrences && a.Shown == b.Shown && a.Unfiltered == b.Unfiltered;
  }
};

Listed ListIn(size_t pieces, const Report& report, const ReportForm& form) {
  StringSink sink;
  sink.Piece = pieces;
  NoYielder yielder;
  const ListResult result = ListWords(report, form, sink, yielder);
  return {std::move(sink.Text), result};
}

/// About 30,000 phrases in three files; half of them occur once.
ReportWorld LongWorld() {
  ReportWorld world;
  world.Facts.Options.SourceKind = TextSource::Folder;
  std::mt19937 random(3);
  for (const char* file : {"a", "b", "c"}) {
    world.BeginFile(file);
    for (int k = 0; k < 10000; ++k)
      world.Say("w" + std::to_string(random() % 120) + " é" + std::to_string(random() % 120) +
                (k % 2 == 0 ? " x" : " \"x") + std::to_string(random() % 9));
  }
  world.Finish();
  return world;
}

TEST(LongLists, InEveryFormatAndOrderAreTheSameAsMadeRowByRow) {
  ReportWorld world = LongWorld();
  ASSERT_GT(world.Table.EntryCount(), 25000u);
  for (int format = 0; format < kDisplayFormats; ++format)
    for (const int order : {0, kAlphabetical})
      for (const ReportForm& form : {kBoxForm, kFileForm}) {
        SCOPED_TRACE("format " + std::to_string(format) + ", order " + std::to_string(order));
        world.Options = {.DisplayFormat = format, .WordOrder = order};
        const Listed expected = ListIn(kSmallPieces, world.View(), form);
        EXPECT_GT(expected.Result.Shown, 25000u);
        EXPECT_TRUE(ListIn(kLargePieces, world.View(), form) == expected);
      }
}

TEST(LongLists, AreTheSameOnAnyNumberOfThreads) {
  ReportWorld world = LongWorld();
  const Listed expected = ListIn(kSmallPieces, world.View(), kFileForm);
  for (const size_t threads : {1U, 2U, 3U, 16U}) {
    SCOPED_TRACE(threads);
    StringSink sink;
    sink.Piece = kLargePieces;
    WithThreads<> yielder(threads);
    const ListResult result = ListWords(world.View(), kFileForm, sink, yielder);
    EXPECT_TRUE((Listed{sink.Text, result}) == expected);
  }
}

TEST(LongLists, OfRowsThatNameManyFilesAreTheSameAsMadeRowByRow) {
  ReportWorld world;
  world.Facts.Options.SourceKind = TextSource::Folder;
  for (int file = 0; file < 900; ++file) {
    world.BeginFile("a file whose name is long enough to make long rows " + std::to_string(file));
    for (int k = 0; k < 200; ++k) world.Say("common w" + std::to_string(k));
    for (int k = 0; k < 20; ++k) world.Say("v" + std::to_string(file) + " w" + std::to_string(k));
  }
  world.Finish();
  ASSERT_GT(world.Table.EntryCount(), 1U << 14);
  for (const int format : {11, 12}) {
    SCOPED_TRACE(format);
    world.Options = {.DisplayFormat = format};
    const Listed expected = ListIn(kSmallPieces, world.View(), kFileForm);
    // The most frequent come first: all of these rows are those of one task.
    EXPECT_GT(expected.Text.size(), RowMaker::kMostText + world.Table.EntryCount() * 40);
    EXPECT_TRUE(ListIn(kLargePieces, world.View(), kFileForm) == expected);
  }
}

TEST(LongLists, InEveryFormOfTextAreTheSameAsMadeRowByRow) {
  ReportWorld world = LongWorld();
  for (const TableForm& tableForm : TableForms()) {
    if (tableForm.Binary) continue;
    SCOPED_TRACE(tableForm.Name);
    ReportForm form = kFileForm;
    form.Table.Form = &tableForm;
    for (const char* column : {"phrase", "frequency", "per_million", "files", "report_rank"})
      form.Table.Columns.push_back(FindColumn(column));
    const Listed expected = ListIn(kSmallPieces, world.View(), form);
    EXPECT_GT(expected.Result.Shown, 25000u);
    EXPECT_TRUE(ListIn(kLargePieces, world.View(), form) == expected);
  }
}

TEST(LongLists, OfTheRowsThatAFilterLeavesAreTheSameAsMadeRowByRow) {
  ReportWorld world = LongWorld();
  for (const char* words : {"w7", "x3 w7", "é11", "nowhere"})
    for (const int order : {0, kAlphabetical}) {
      SCOPED_TRACE(words);
      world.Options = {.WordOrder = order, .FilterText = words, .FilterActive = true};
      const Listed expected = ListIn(kSmallPieces, world.View(), kFileForm);
      EXPECT_LT(expected.Result.Shown, expected.Result.Unfiltered);
      EXPECT_TRUE(ListIn(kLargePieces, world.View(), kFileForm) == expected);
    }
}

TEST(LongLists, EndWithTheRowsThatWereAskedFor) {
  ReportWorld world = LongWorld();
  for (const uint32_t most : {0u, 1u, 2048u, 20000u, 1000000u})
    for (const Column* order : {static_cast<const Column*>(nullptr), FindColumn("phrase")}) {
      SCOPED_TRACE(most);
      Report report = world.View();
      report.Rows.Most = most;
      report.Rows.OrderBy = order;
      const Listed expected = ListIn(kSmallPieces, report, kFileForm);
      EXPECT_EQ(expected.Result.Shown, std::min(most, expected.Result.Unfiltered));
      EXPECT_TRUE(ListIn(kLargePieces, report, kFileForm) == expected);
    }
}

TEST(LongLists, AreCountedToTheEndByAFilterWhenTheSinkIsFull) {
  ReportWorld world = LongWorld();
  world.Options = {.FilterText = "x3", .FilterActive = true};
  const ListResult all = ListIn(kLargePieces, world.View(), kFileForm).Result;
  StringSink sink;
  sink.Piece = size_t{1} << 14;
  sink.Takes = 1;
  NoYielder yielder;
  const ListResult result = ListWords(world.View(), kFileForm, sink, yielder);
  EXPECT_EQ(result.Outcome, ListOutcome::SinkFull);
  EXPECT_EQ(result.Phrases, all.Phrases);
  EXPECT_EQ(result.Occurrences, all.Occurrences);
  EXPECT_LT(result.Shown, all.Shown);
}

TEST(LongLists, KeepTheWholeRowsMadeBeforeAStop) {
  ReportWorld world = LongWorld();
  const auto [whole, all] = ListIn(kLargePieces, world.View(), kFileForm);
  for (const int yields : {1, 4, 9, 17}) {
    StoppingYielder yielder(yields);
    StringSink sink;
    sink.Piece = kLargePieces;
    const ListResult result = ListWords(world.View(), kFileForm, sink, yielder);
    EXPECT_EQ(result.Outcome, ListOutcome::Stopped);
    EXPECT_LT(sink.Text.size(), whole.size());
    EXPECT_TRUE(whole.starts_with(sink.Text));
    EXPECT_EQ(result.Phrases, all.Phrases);
    EXPECT_EQ(result.Occurrences, all.Occurrences);
  }
}

}  // namespace
}  // namespace korv
