#include "app/run/output_box.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_text_box.h"
#include "tests/report/report_world.h"

namespace korv {
namespace {

TEST(OutputToTxb, AppendsAndShowsTheEnd) {
  FakeTextBox text;
  OutputBox box(text);
  EXPECT_TRUE(box.OutputToTxb("one\r\n"));
  EXPECT_TRUE(box.OutputToTxb("two"));
  EXPECT_EQ(text.Text, "one\r\ntwo");
  EXPECT_EQ(text.Shown, 2);
  EXPECT_FALSE(box.Full());
}

TEST(OutputToTxb, ABoxOfExactlyItsCapacityTakesOneMoreText) {
  FakeTextBox text;
  OutputBox box(text);
  text.Text.assign(kTextBoxCapacity, 'x');
  EXPECT_TRUE(box.OutputToTxb("last"));
  EXPECT_EQ(text.Length(), kTextBoxCapacity + 4);
  EXPECT_FALSE(box.Full());
}

TEST(OutputToTxb, AFullerBoxRefusesAndSaysSo) {
  FakeTextBox text;
  OutputBox box(text);
  const std::string held(kTextBoxCapacity + 100, 'x');
  text.Text = held;
  EXPECT_FALSE(box.OutputToTxb("more"));
  EXPECT_TRUE(box.Full());
  EXPECT_EQ(text.Text, held.substr(0, held.size() - 256) + "\r\n\r\nTextbox is full.");
}

TEST(OutputToTxb, LaterTextsChangeNothingUntilTheBoxIsCleared) {
  FakeTextBox text;
  OutputBox box(text);
  text.Text.assign(kTextBoxCapacity + 1, 'x');
  box.OutputToTxb("more");
  const std::string full = text.Text;
  EXPECT_FALSE(box.OutputToTxb("still more"));
  EXPECT_EQ(text.Text, full);
  box.Clear();
  EXPECT_FALSE(box.Full());
  EXPECT_TRUE(box.OutputToTxb("fresh"));
  EXPECT_EQ(text.Text, "fresh");
}

TEST(OutputToTxb, CharactersCountNotBytes) {
  FakeTextBox text;
  OutputBox box(text);
  for (size_t i = 0; i < kTextBoxCapacity; ++i) text.Text += "é";
  EXPECT_TRUE(box.OutputToTxb("é"));
  EXPECT_FALSE(box.OutputToTxb("é"));
  EXPECT_EQ(text.Length(), kTextBoxCapacity + 1 - 256 + std::string("\r\n\r\nTextbox is full.").size());
}

TEST(OutputToTxb, AFullBoxTellsHowFarARunningCountHasCome) {
  FakeTextBox text;
  int busyCleared = 0;
  OutputBox box(text,
                {.ClearBusy = [&] { ++busyCleared; }, .CountSoFar = [] { return "2 files in 1 folder"; }});
  text.Text.assign(kTextBoxCapacity + 1, 'x');
  box.OutputToTxb("more");
  EXPECT_TRUE(text.Text.ends_with("xx\r\n\r\nTextbox is full.\r\n\r\nTo this point: 2 files in 1 folder"));
  EXPECT_EQ(busyCleared, 1);
}

ReportWorld ManyPhrases(int phrases) {
  ReportWorld world;
  for (int i = 0; i < phrases; ++i) world.Say("phrase number" + std::to_string(100000 + i));
  world.Finish();
  world.Options.DisplayFormat = 8;
  return world;
}

TEST(ListWordsToTextBox, HoldsTheReportOfAShortList) {
  ReportWorld world = ReportWorld::Of({{"the cat", 2}, {"a dog", 3}});
  FakeTextBox text;
  text.Text = "what was there";
  OutputBox box(text);
  NoYielder yielder;
  EXPECT_EQ(ListWordsToTextBox(world.View(), box, yielder).Outcome, ListOutcome::Listed);
  EXPECT_EQ(text.Text, TextOf(world.View(), kBoxForm));
}

TEST(ListWordsToTextBox, ALongListFillsTheBoxAndTheRestIsDropped) {
  ReportWorld world = ManyPhrases(100000);
  FakeTextBox text;
  OutputBox box(text);
  NoYielder yielder;
  EXPECT_EQ(ListWordsToTextBox(world.View(), box, yielder).Outcome, ListOutcome::SinkFull);
  const std::string full = "\r\n\r\nTextbox is full.";
  ASSERT_TRUE(text.Text.ends_with(full));
  const std::string kept = text.Text.substr(0, text.Text.size() - full.size());
  const std::string whole = TextOf(world.View(), kBoxForm);
  EXPECT_TRUE(whole.starts_with(kept));
  const size_t line = std::string("phrase number100000\r\n").size();
  EXPECT_GE(kept.size(), kTextBoxCapacity - 256);
  EXPECT_LE(kept.size(), kTextBoxCapacity - 256 + line);
  EXPECT_TRUE(box.Full());
}

/// The slow twin of ListResult::Shown: looks for the ends of the phrases in what the box shows of the list.
uint32_t PhrasesSeen(const std::string& box, int format) {
  const size_t list = box.find(
      '\n', box.find("Phrase [longest") == box.npos ? box.find(" Phrase") : box.find("Phrase [longest"));
  const size_t notice = box.find("\r\n\r\nTextbox is full.");
  uint32_t seen = 0;
  // Every phrase ends in six digits and, but for the list in one line, its line.
  const std::string end = format == 9 ? "number" : "\r\n";
  const size_t rest = format == 9 ? end.size() + 6 : 1;
  for (size_t at = box.find(end, list + 1); at != box.npos && at + rest <= notice; at = box.find(end, at + 1))
    ++seen;
  return seen;
}

TEST(ListWordsToTextBox, TellsHowManyPhrasesAreInSightWholly) {
  for (const int format : {0, 1, 3, 5, 8, 9}) {
    for (const int phrases : {3000, 3001, 6000}) {
      ReportWorld world = ManyPhrases(phrases);
      world.Options.DisplayFormat = format;
      for (const char* words : {"", "phrase"}) {
        world.Options.FilterText = words;
        world.Options.FilterActive = *words != 0;
        FakeTextBox text;
        OutputBox box(text);
        NoYielder yielder;
        const ListResult result = ListWordsToTextBox(world.View(), box, yielder);
        SCOPED_TRACE(testing::Message() << format << ' ' << phrases << ' ' << words);
        EXPECT_EQ(result.Phrases, static_cast<uint32_t>(phrases));
        EXPECT_EQ(result.Shown, box.Full() ? PhrasesSeen(text.Text, format) : static_cast<uint32_t>(phrases));
        EXPECT_EQ(box.Full(), result.Outcome == ListOutcome::SinkFull);
      }
    }
  }
}

TEST(ListWordsToTextBox, PiecesAreAFewThousandCharacters) {
  ReportWorld world = ManyPhrases(1000);
  FakeTextBox text;
  OutputBox box(text);
  NoYielder yielder;
  ListWordsToTextBox(world.View(), box, yielder);
  EXPECT_EQ(text.Text, TextOf(world.View(), kBoxForm));
  EXPECT_GE(text.Appends, 8);
  EXPECT_LE(text.Appends, 12);
}

TEST(ListWordsToTextBox, SaysThatItWasStopped) {
  ReportWorld world = ReportWorld::Of({{"the cat", 2}, {"a dog", 3}});
  FakeTextBox text;
  OutputBox box(text);
  StoppingYielder yielder(2 + 2);
  EXPECT_EQ(ListWordsToTextBox(world.View(), box, yielder).Outcome, ListOutcome::Stopped);
  EXPECT_TRUE(text.Text.ends_with("    1     3  a dog\r\n\r\nListing stopped.\r\n"));
}

TEST(ListWordsToTextBox, NamesSkippedFiles) {
  ReportWorld world = ReportWorld::Of({{"the cat", 2}});
  world.Facts.SkippedFiles = {{"c.rtf", "is an RTF file"}};
  FakeTextBox text;
  OutputBox box(text);
  NoYielder yielder;
  ListWordsToTextBox(world.View(), box, yielder);
  EXPECT_TRUE(text.Text.starts_with("1 file was skipped:\r\nc.rtf: is an RTF file\r\nThere is one phrase"));
}

}  // namespace
}  // namespace korv
