// What stands beside the table about one phrase.

#include "desktop/results/table/row_details.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <QImage>
#include <QScrollBar>
#include <QTextCursor>
#include <QUrl>
#include <algorithm>
#include <tuple>

#include "engine/analysis/phrase_order.h"
#include "engine/corpus/corpus.h"
#include "tests/desktop/view_test.h"
#include "tests/engine/counting_world.h"
#include "tests/fakes/native_paths.h"
#include "tests/reference/naive_spread.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// All phrases of a run, prepared for details.
struct Prepared {
  explicit Prepared(std::shared_ptr<const CountedRun> run) {
    NoYielder yielder;
    Source = TableSource::Of(std::move(run), yielder)->With(PhraseDetails::kNeeds, {}, yielder);
    Rows = AllRows(Source->Table(), OrderByPhrase(Source->Table(), SortDirection::Ascending, yielder));
  }
  PhraseIndex Phrase(std::string_view text) const {
    for (const PhraseIndex i : Source->Table().All())
      if (Source->Table().Text(i) == text) return i;
    ADD_FAILURE() << text;
    return kNoPhrase;
  }

  std::shared_ptr<const TableSource> Source;
  PhraseList Rows;
};

class RowDetailsTest : public ViewTest {
 protected:
  RowDetailsTest() {
    world.UseLengths(2, 3, 1);
    details.resize(400, 500);
    details.show();
  }
  void Show(const Prepared& run, std::string_view phrase) {
    details.Show(run.Source, run.Rows, run.Phrase(phrase));
    UntilIdle(details);
  }
  std::string Text() const { return FromQt(details.toPlainText()); }
  QImage Bar() { return details.loadResource(QTextDocument::ImageResource, QUrl("places:")).value<QImage>(); }

  Desktop surroundings = Surroundings();
  RowDetails details{surroundings, nullptr};
};

TEST_F(RowDetailsTest, ShowTheFirstContextsAsTheFilesHaveThem) {
  world.Files.Add("/t/a.txt", "The big,  fat cat.\nA Big Fat cat!\n");
  world.Files.Add("/t/b/c.txt", "One big fat cat.\n");
  Show(Prepared(CountFolder()), "big fat cat");
  EXPECT_THAT(Text(), HasSubstr("Contexts (3)"));
  EXPECT_THAT(Text(), HasSubstr("\na.txt:1\nThe big, fat cat. A Big Fat cat!\n"));
  EXPECT_THAT(Text(), HasSubstr("\na.txt:2\nThe big, fat cat. A Big Fat cat!\n"));
  EXPECT_THAT(Text(), HasSubstr("\n" + Native("b/c.txt:1") + "\nOne big fat cat.\n"));
}

TEST_F(RowDetailsTest, ShowTheWordsOfTheRunWhereAFileIsGone) {
  world.Files.Add("/t/a.txt", "The big cat, ran.\n");
  const Prepared run(CountFolder());
  world.Files.Erase("/t/a.txt");
  Show(run, "big cat ran");
  EXPECT_THAT(Text(), HasSubstr("\na.txt\nthe big cat ran"));
}

TEST_F(RowDetailsTest, ShowNoMoreThanTheFirstContexts) {
  std::string text;
  for (int line = 1; line <= 9; ++line) text += "red hen.\n";
  world.UseClipboard(text);
  Show(Prepared(Counted()), "red hen");
  EXPECT_THAT(Text(), HasSubstr("Contexts (5 of 9)"));
  EXPECT_THAT(Text(), HasSubstr("Clipboard:5"));
  EXPECT_THAT(Text(), Not(HasSubstr("Clipboard:6")));
}

TEST_F(RowDetailsTest, FitThePictureOfPlacesIntoANarrowPane) {
  std::string text;
  for (int line = 0; line < 50; ++line) text += "red hen.\n";
  world.UseClipboard(text);
  Show(Prepared(Counted()), "red hen");
  const int wide = Bar().width();
  for (const int width : {250, 180, 160}) {
    details.resize(width, 150);
    QApplication::processEvents();
    EXPECT_EQ(details.horizontalScrollBar()->maximum(), 0) << width;
    EXPECT_TRUE(details.verticalScrollBar()->maximum() > 0) << width;
    EXPECT_GE(Bar().width(), 100) << width;
    EXPECT_LT(Bar().width(), width) << width;
  }
  details.resize(400, 500);
  QApplication::processEvents();
  EXPECT_EQ(Bar().width(), wide);
}

TEST_F(RowDetailsTest, ShowWhereInTheTextThePhraseStands) {
  std::string text;
  for (int line = 0; line < 50; ++line) text += line < 25 ? "red hen.\n" : "big cat.\n";
  world.UseClipboard(text);
  const Prepared run(Counted());
  Show(run, "red hen");
  EXPECT_THAT(Text(), HasSubstr("in 25 of 100 equal parts of the text"));
  const QImage bar = Bar();
  ASSERT_FALSE(bar.isNull());
  // The phrase stands in every other cell of the first half.
  const auto filled = [&](double share) {
    const int x = static_cast<int>(share * bar.width());
    return qAlpha(bar.pixel(x, bar.height() / 2)) > 0;
  };
  EXPECT_TRUE(filled(0.005));
  EXPECT_FALSE(filled(0.015));
  EXPECT_TRUE(filled(0.485));
  EXPECT_FALSE(filled(0.505));
}

TEST_F(RowDetailsTest, TickTheBordersOfFiles) {
  world.Files.Add("/t/a.txt", "red hen.\n");
  world.Files.Add("/t/b.txt", "red hen. red hen. big cat.\n");
  Show(Prepared(CountFolder()), "red hen");
  const QImage bar = Bar();
  const int bottom = bar.height() - static_cast<int>(2 * bar.devicePixelRatio());
  std::vector<int> ticks;
  for (int x = 0; x < bar.width(); ++x)
    if (qAlpha(bar.pixel(x, bottom)) > 0) ticks.push_back(x);
  ASSERT_THAT(ticks, Not(IsEmpty()));
  EXPECT_NEAR(ticks.front(), bar.width() / 4, 2 * bar.devicePixelRatio());
  EXPECT_NEAR(ticks.back(), bar.width() / 4, 2 * bar.devicePixelRatio());
}

TEST_F(RowDetailsTest, LeadToContextsAndOtherPhrases) {
  world.UseClipboard("the red hen\nred hen\n");
  const Prepared run(Counted());
  std::vector<std::string> contexts;
  std::vector<std::string> phrases;
  details.ContextsAsked = [&](PhraseIndex i) { contexts.push_back(run.Source->Table().Text(i)); };
  details.PhraseChosen = [&](PhraseIndex i) { phrases.push_back(run.Source->Table().Text(i)); };
  // Nothing to lead to.
  QTest::mouseDClick(details.viewport(), Qt::LeftButton, {}, {20, 20});
  EXPECT_THAT(contexts, IsEmpty());
  Show(run, "red hen");
  QTest::mouseDClick(details.viewport(), Qt::LeftButton, {}, {20, 20});
  EXPECT_THAT(contexts, ElementsAre("red hen"));
  emit details.anchorClicked(QUrl("contexts:"));
  EXPECT_THAT(contexts, ElementsAre("red hen", "red hen"));
  emit details.anchorClicked(QUrl(QStringLiteral("phrase:%1").arg(ValueOf(run.Phrase("the red hen")))));
  EXPECT_THAT(phrases, ElementsAre("the red hen"));
}

TEST_F(RowDetailsTest, LetTheRunGo) {
  world.UseClipboard("red hen\nred hen\n");
  std::weak_ptr<const CountedRun> run;
  {
    const Prepared prepared(Counted());
    run = prepared.Source->SharedRun();
    Show(prepared, "red hen");
  }
  details.Show(nullptr, {}, kNoPhrase);
  UntilIdle(details);
  EXPECT_TRUE(run.expired());
  EXPECT_EQ(Text(), "Select a phrase in the table.");
}

// ---- Against the naive model

using Others = std::vector<std::tuple<std::string, uint32_t>>;

Others TextsOf(const std::vector<PhraseDetails::Other>& others) {
  Others texts;
  for (const PhraseDetails::Other& other : others) texts.emplace_back(other.Text, other.Count);
  return texts;
}

bool HoldsWords(const std::string& whole, const std::string& part) {
  return whole.size() > part.size() && (' ' + whole + ' ').find(' ' + part + ' ') != std::string::npos;
}

/// The most frequent ones first, of equals the first in alphabetical order, as in the table.
Others Sorted(const PhraseTable& table, std::vector<PhraseIndex> others) {
  std::ranges::stable_sort(others,
                           [&](PhraseIndex a, PhraseIndex b) { return table.Count(a) > table.Count(b); });
  Others texts;
  for (const PhraseIndex i : others) texts.emplace_back(table.Text(i), table.Count(i));
  if (texts.size() > PhraseDetails::kMostShown) texts.resize(PhraseDetails::kMostShown);
  return texts;
}

RC_GTEST_PROP(PhraseDetailsProperty, AreThoseOfTheModel, ()) {
  CountingWorld world = DrawWorld({.Lists = true, .Rules = true, .Folder = *rc::gen::arbitrary<bool>()});
  world.Options.KeepPlaces = true;
  world.Options.MinFrequency = std::min(world.Options.MinFrequency, 2);
  RC_LOG() << world;
  EngineRun counted = CountedByEngine(world);
  const reference::CountingRun model = ModelRun(world);
  auto run = std::make_shared<CountedRun>();
  run->Lists = std::move(counted.Lists);
  run->Table = std::move(counted.Table);
  run->Facts.Options = world.Options;
  run->Facts.Words = counted.Words;
  const Prepared prepared(run);
  const PhraseTable& table = run->Table;
  RC_PRE(prepared.Rows.Rows() > 0);
  const PhraseIndex phrase = prepared.Rows.EntryAt(*rc::gen::inRange<uint32_t>(0, prepared.Rows.Rows()));
  const std::string text = table.Text(phrase);
  NoYielder yielder;
  const auto details = DetailsOf(*prepared.Source, prepared.Rows, phrase, yielder);
  RC_ASSERT(details.has_value());

  std::vector<PhraseIndex> longer;
  std::vector<PhraseIndex> shorter;
  for (const PhraseIndex i : table.All()) {
    if (!table.Listed(i)) continue;
    if (HoldsWords(table.Text(i), text)) longer.push_back(i);
    if (HoldsWords(text, table.Text(i))) shorter.push_back(i);
  }
  RC_ASSERT(details->AllLonger == longer.size());
  RC_ASSERT(details->AllShorter == shorter.size());
  RC_ASSERT(TextsOf(details->Longer) == Sorted(table, longer));
  RC_ASSERT(TextsOf(details->Shorter) == Sorted(table, shorter));

  const std::vector<uint32_t> bySource = reference::OccurrencesBySource(model, text);
  RC_ASSERT(prepared.Source->IsOneFile() ||
            static_cast<ptrdiff_t>(details->AllFiles) ==
                std::ranges::count_if(bySource, [](uint32_t n) { return n > 0; }));
  RC_ASSERT(details->Cells == reference::OccurrencesByPart(model, text, 100));

  std::vector<size_t> begins = reference::WordsAtWhichItBegins(model, text);
  std::ranges::sort(begins);
  if (begins.size() > PhraseDetails::kMostContexts) begins.resize(PhraseDetails::kMostContexts);
  const TakenWords& words = *prepared.Source->View().Analysis->Words();
  std::vector<size_t> found;
  for (const PhraseDetails::Context& context : details->First) {
    found.push_back(words.Before(context.At));
    RC_ASSERT(context.Phrase == text);
  }
  RC_ASSERT(found == begins);
  RC_TAG(longer.empty() && shorter.empty() ? "alone" : "with others");
}

}  // namespace
}  // namespace korv
