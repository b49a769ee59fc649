#include "app/run/run.h"

#include <gmock/gmock.h>

#include <string>

#include "app/run/questions.h"
#include "tests/app/run_texts.h"
#include "tests/app/run_world.h"

namespace korv {
namespace {

using testing::IsEmpty;

TEST(RunCount, CountsTheClipboard) {
  RunWorld world;
  world.UseClipboard(kText);
  world.UseLengths(2, 2);
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.Listed(), "3 the big, 2 big cat");
  EXPECT_EQ(world.Run.Facts.InputPath, "");
}

TEST(RunCount, RefusesClipboardsThatAreNoText) {
  struct Case {
    std::string Text;
    const char* Message;
    const char* Title;
  };
  const char* noWords = "The text on the clipboard does not consist\nsolely of natural language words.";
  for (const Case& c : {Case{"", "There is no text on the clipboard.", "Invalid input"},
                        {"12 34 ...", noWords, "Invalid input"},
                        {std::string("words ") + std::string(10, '\x01'), noWords, "Invalid input"},
                        {std::string(100001, 'a'),
                         "There are 100,001 characters in the text on the clipboard.\nThe maximum permitted "
                         "is 100,000.  If possible,\ncount word frequencies for this text using an input "
                         "file.",
                         "Too much clipboard text"}}) {
    RunWorld world;
    world.UseClipboard(c.Text);
    EXPECT_EQ(world.Count(), RunEnd::Refused);
    EXPECT_EQ(world.Messages.Only().Text, c.Message);
    EXPECT_EQ(world.Messages.Only().Title, c.Title);
  }
}

TEST(RunCount, TakesAClipboardOfExactlyTheLimit) {
  RunWorld world;
  world.UseClipboard(std::string(100000, 'a'));
  EXPECT_EQ(world.Count(), RunEnd::Counted);
}

TEST(RunCount, ReadsAStreamOfAnyLengthInItsEncoding) {
  const std::string utf8 = "größer als größer als ";
  const std::string ansi =
      "gr\xF6\xDF"
      "er als gr\xF6\xDF"
      "er als ";
  struct Case {
    std::string Bytes;
    EncodingChoice Choice;
    const char* Listed;
  };
  for (const Case& c : {Case{utf8, EncodingChoice::Auto, "2 größer als"},
                        {"\xEF\xBB\xBF" + utf8, EncodingChoice::Auto, "2 größer als"},
                        {ansi, EncodingChoice::Auto, "2 größer als"},
                        {ansi, EncodingChoice::Ansi, "2 größer als"},
                        {"\xEF\xBB\xBF" + ansi, EncodingChoice::Ansi, "2 größer als"},
                        // An ill-formed sequence separates words.
                        {ansi, EncodingChoice::Utf8, "2 als"}}) {
    FakeStream stream(c.Bytes);
    RunWorld world;
    world.UseClipboard("");
    world.Request.Stream = &stream;
    world.Request.StreamEncoding = c.Choice;
    world.UseLengths(2, 2);
    EXPECT_EQ(world.Count(), RunEnd::Counted);
    if (c.Choice == EncodingChoice::Utf8)
      EXPECT_EQ(world.Listed().find("größer"), std::string::npos);
    else
      EXPECT_EQ(world.Listed(), c.Listed);
  }
  FakeStream longStream(std::string(150000, ' ') + kText);
  RunWorld world;
  world.UseClipboard("");
  world.Request.Stream = &longStream;
  EXPECT_EQ(world.Count(), RunEnd::Refused);  // Nothing but blanks where it is looked at.
}

TEST(RunCount, CountsAStreamWhileItComes) {
  std::string text;
  while (text.size() < 2'000'000) text += "gr\u00F6\u00DFer als das Haus\n";
  FakeStream stream(text);
  RunWorld world;
  uint64_t wordsBeforeTheEnd = 0;
  stream.OnRead = [&] { wordsBeforeTheEnd = world.Progress.Words; };
  world.UseClipboard("");
  world.Request.Stream = &stream;
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_GT(wordsBeforeTheEnd, world.Run.Facts.Words.Taken / 2);
  EXPECT_EQ(world.Run.Facts.Encodings.Utf8, 1u);
}

TEST(RunCount, CountsWhatAStreamHadGivenWhenItWasStopped) {
  // The first byte above 127 makes the reader wait for more of the text than the lines that are complete.
  FakeStream stream("caf\xC3\xA9 noir\ncaf\xC3\xA9 noir\ncaf\xC3\xA9 no");
  RunWorld world;
  int reads = 0;
  stream.OnRead = [&] {
    if (++reads == 2) world.Yielder.RequestStop();
  };
  world.Messages.WillAnswer(questions::kCountingInterrupted, Answer::Yes);
  world.UseClipboard("");
  world.UseLengths(2, 2);
  world.Request.Stream = &stream;
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.Listed(), "2 caf\u00E9 noir, 2 noir caf\u00E9");
  EXPECT_TRUE(world.Run.Interrupted);
}

TEST(RunCount, TakesAStreamThatEndsInsideACharacterForAnsi) {
  for (const bool whole : {true, false}) {
    FakeStream stream(std::string("old caf\xC3") + (whole ? "\xA9" : ""));
    RunWorld world;
    world.UseClipboard("");
    world.UseLengths(2, 2);
    world.Request.Options.MinFrequency = 1;
    world.Request.Stream = &stream;
    EXPECT_EQ(world.Count(), RunEnd::Counted);
    EXPECT_EQ(world.Run.Facts.Encodings.Utf8, whole ? 1u : 0u);
    EXPECT_EQ(world.Run.Facts.Encodings.Ansi, whole ? 0u : 1u);
    EXPECT_EQ(world.Listed(), whole ? "1 old caf\u00E9" : "1 old caf\u00E3");
  }
}

TEST(RunCount, RefusesAStreamThatFailsLate) {
  FakeStream stream(std::string(200000, 'w') + "\nwords");
  RunWorld world;
  int reads = 0;
  stream.OnRead = [&] { stream.Fail = ++reads > 150; };
  world.UseClipboard("");
  world.Request.Stream = &stream;
  EXPECT_EQ(world.Count(), RunEnd::Refused);
  EXPECT_EQ(world.Messages.Shown.size(), 1u);
}

TEST(RunCount, RefusesAStreamThatIsEmptyOrFails) {
  FakeStream empty("");
  FakeStream failing("words");
  failing.Fail = true;
  for (FakeStream* stream : {&empty, &failing}) {
    RunWorld world;
    world.UseClipboard("");
    world.Request.Stream = stream;
    EXPECT_EQ(world.Count(), RunEnd::Refused);
    EXPECT_EQ(world.Messages.Shown.size(), 1u);
  }
}

TEST(RunCount, AStreamStoppedBeforeItsFirstByteEndsTheRunInSilence) {
  FakeStream stream("");
  RunWorld world;
  stream.OnRead = [&] { world.Yielder.RequestStop(); };
  world.UseClipboard("");
  world.Request.Stream = &stream;
  EXPECT_EQ(world.Count(), RunEnd::Stopped);
  EXPECT_THAT(world.Messages.Shown, IsEmpty());
}

TEST(RunCount, AFileStaysAFileWhenThereIsAStreamToo) {
  FakeStream stream("not these words");
  RunWorld world;
  world.UseFile("/a.txt", kText);
  world.Request.Stream = &stream;
  world.UseLengths(2, 2);
  world.Count();
  EXPECT_EQ(world.Listed(), "3 the big, 2 big cat");
}

}  // namespace
}  // namespace korv
