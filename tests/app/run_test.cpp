#include "app/run/run.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <string>

#include "app/run/questions.h"
#include "report/summary.h"
#include "sources/questions.h"
#include "tests/app/run_world.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kText = "The big cat sat. The big cat ran and the big dog sat.";

std::string ManyPhrases(int words) {
  std::string text;
  for (int k = 0; k < words; ++k) {
    std::string word = "word";
    for (int n = k; n > 0; n /= 26) word += static_cast<char>('a' + n % 26);
    text += word + " ";
  }
  return text;
}

// ---- Before a run.

struct Asked {
  bool Starts;
  int MinFrequency;
  ReportOptions Report;
};

Asked Ask(RunWorld& world, ReportOptions report = {}) {
  const bool starts = AskBeforeCounting(world.Request, report, world.Files, world.Messages);
  return {starts, world.Request.Options.MinFrequency, report};
}

TEST(AskBeforeCounting, RefusesAMaximumBelowTheMinimum) {
  RunWorld world;
  world.UseLengths(5, 4, 1);
  EXPECT_FALSE(Ask(world).Starts);
  EXPECT_EQ(world.Messages.Only().Text,
            "The maximum number of words in each phrase\r\nmust not be less than the minimum number.");
  EXPECT_EQ(world.Messages.Only().Title, "Invalid input");
  EXPECT_EQ(world.Messages.Only().Icon, Icon::Exclamation);
}

TEST(AskBeforeCounting, AcceptsEqualLengths) {
  RunWorld world;
  world.UseLengths(5, 5);
  EXPECT_TRUE(Ask(world).Starts);
  EXPECT_THAT(world.Messages.Shown, IsEmpty());
}

TEST(AskBeforeCounting, AdvisesAgainstAMinimumFrequencyOfOne) {
  constexpr size_t kBelow = 51 * 1024 - 513;
  constexpr size_t kEnough = 51 * 1024 - 511;
  struct Case {
    TextSource Source;
    size_t FileBytes;
    int MinFrequency;
    int WordOrder;
    bool Advised;
  };
  for (const Case c : {Case{TextSource::Folder, 0, 1, 0, true},
                       {TextSource::Folder, 0, 2, 0, false},
                       {TextSource::Folder, 0, 1, 1, false},
                       {TextSource::Clipboard, kEnough, 1, 0, false},
                       {TextSource::SingleFile, kBelow, 1, 0, false},
                       {TextSource::SingleFile, kEnough, 1, 0, true},
                       {TextSource::SingleFile, kEnough, 1, 1, false}})
    for (const Answer answer : {Answer::Yes, Answer::No}) {
      RunWorld world;
      world.UseFile("/a.txt", std::string(c.FileBytes, 'x'));
      world.UseLengths(2, 3, c.MinFrequency);
      world.Request.Options.SourceKind = c.Source;
      world.Messages.WillAnswer(questions::kMinimumFrequency, answer);
      const Asked asked = Ask(world, {.WordOrder = c.WordOrder});
      EXPECT_TRUE(asked.Starts);
      EXPECT_EQ(!world.Messages.Shown.empty(), c.Advised) << c.FileBytes;
      EXPECT_EQ(asked.MinFrequency, c.Advised && answer == Answer::Yes ? 2 : c.MinFrequency);
      if (c.Advised) {
        EXPECT_EQ(world.Messages.Only().Text,
                  "If you are just interested in the most frequently occurring phrases then the minimum "
                  "number of occurrences should be set to at least 2, otherwise processing will take "
                  "longer.\r\nDo you wish to reset it?");
        EXPECT_EQ(world.Messages.Only().Buttons, Buttons::YesNo);
      }
    }
}

TEST(AskBeforeCounting, AsksWhetherToKeepTheFilter) {
  for (const bool keep : {true, false}) {
    RunWorld world;
    world.Messages.WillAnswer(questions::kKeepFilter, keep ? Answer::Yes : Answer::No);
    const Asked asked = Ask(world, {.FilterText = "cat"});
    EXPECT_TRUE(asked.Starts);
    EXPECT_EQ(asked.Report.FilterText, keep ? "cat" : "");
    EXPECT_EQ(asked.Report.FilterActive, keep);
    EXPECT_EQ(world.Messages.Only().Text, "Do you wish to keep the filter settings?");
    EXPECT_EQ(world.Messages.Only().Title, "Filter results?");
  }
}

TEST(AskBeforeCounting, WithoutFilterWordsTheListIsWhole) {
  RunWorld world;
  const Asked asked = Ask(world, {.FilterActive = true});
  EXPECT_FALSE(asked.Report.FilterActive);
  EXPECT_THAT(world.Messages.Shown, IsEmpty());
}

// ---- Single files.

TEST(RunCount, CountsTheCatsOfAFile) {
  RunWorld world;
  world.UseFile("/a.txt", kText);
  world.UseLengths(2, 3);
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.Listed(), "3 the big, 2 the big cat");
  EXPECT_EQ(world.Run.Facts.InputPath, "/a.txt");
  EXPECT_EQ(world.Run.Facts.MinCharacters, 3);
  EXPECT_FALSE(world.Run.Facts.WordsToIgnoreInUse);
  EXPECT_FALSE(world.Run.Facts.Options.Stopped);
  EXPECT_EQ(world.Run.Facts.Words.Taken, 13u);
  EXPECT_EQ(world.Run.Facts.LongPhrases, 0u);
  EXPECT_FALSE(world.Run.Interrupted);
  EXPECT_THAT(world.Messages.Shown, IsEmpty());
  EXPECT_THAT(world.View.Statuses,
              ElementsAre("Now counting phrases in\r\n\r\n/a.txt", "Excluding redundant subphrases . . . ",
                          "Now setting up frequency chain . . .", "(cleared)"));
  EXPECT_THAT(world.View.ShownSizes, ElementsAre("Filesize: 53 bytes|"));
}

TEST(RunCount, ListsEveryPhraseWithAMinimumFrequencyOfOne) {
  RunWorld world;
  world.UseFile("/a.txt", "one two three. one two");
  world.UseLengths(2, 3, 1);
  world.Count();
  EXPECT_EQ(world.Listed(), "2 one two, 1 one two three");
}

TEST(RunCount, TellsOfSortingAboveAThousandPhrases) {
  for (const int phrases : {1, 1000, 1001}) {
    RunWorld world;
    world.UseFile("/a.txt", ManyPhrases(phrases + 1));
    world.UseLengths(2, 2, 1);
    world.Count();
    EXPECT_EQ(world.Run.Table.PhraseCount(), static_cast<uint64_t>(phrases));
    if (phrases > 1000)
      EXPECT_THAT(world.View.Statuses, Contains("Now sorting ..."));
    else
      EXPECT_THAT(world.View.Statuses, Not(Contains("Now sorting ...")));
  }
}

TEST(RunCount, SaysWhatKindOfFileItIs) {
  struct Case {
    std::string Content;
    const char* WhileReading;
    const char* Kind;
  };
  for (const Case& c :
       {Case{"one two\r\nthree", "", ""},
        {"one two\nthree", "", "This is a Unix-type file."},
        {"one two\rthree", "", "This is a Macintosh-type file."},
        {"\xEF\xBB\xBFone two\nthree", "This is a UTF8 file.", "This is a UTF-8 text file."}}) {
    RunWorld world;
    world.UseFile("/a.txt", c.Content);
    EXPECT_EQ(world.Count(), RunEnd::Counted);
    EXPECT_THAT(world.View.FileKinds, ElementsAre(c.WhileReading));
    EXPECT_EQ(world.Run.FileKind, c.Kind);
  }
}

TEST(RunCount, RefusesAFileThatCannotBeCountedOnceAndLeavesNoSizes) {
  struct Case {
    const char* Path;
    const char* Output;
    const char* Text;
    const char* Title;
  };
  for (const Case c :
       {Case{" ", "", "Input file not specified.", "Error"},
        {"/texts\\", "", "Invalid input file specification.", "Invalid input"},
        {"/none.txt", "", "Input file does not exist.", "File not found"},
        {"/empty.txt", "", "Input file is zero-length.", "Error"},
        {"/a.txt", "/A.TXT", "The output file cannot be the same as the input file.", "Error"},
        {"/tiny.txt", "", "File /tiny.txt\r\ncontains only from 1 to 4 bytes.", "Invalid input file"},
        {"/locked.txt", "", "This file cannot be opened.", "Invalid input file"}}) {
    RunWorld world;
    world.Files.Add("/a.txt", kText);
    world.Files.Add("/empty.txt", "");
    world.Files.Add("/tiny.txt", "abc");
    world.Files.Add("/locked.txt", kText);
    world.Files.Refuse("/locked.txt", FileFault::PermissionDenied);
    world.Request.InputPath = c.Path;
    world.Request.OutputPath = c.Output;
    EXPECT_EQ(world.Count(), RunEnd::Refused) << c.Path;
    EXPECT_EQ(world.Messages.Only().Text, c.Text);
    EXPECT_EQ(world.Messages.Only().Title, c.Title);
    EXPECT_EQ(world.View.ShownSizes.back(), "|");
  }
}

TEST(RunCount, EmptiesTheInputBoxOnAnInvalidSpecificationOnly) {
  RunWorld world;
  world.Request.InputPath = "/texts/";
  world.Count();
  EXPECT_THAT(world.View.InputFiles, ElementsAre(""));
}

TEST(RunCount, RefusesFilesThatAreNoText) {
  struct Case {
    std::string Content;
    const char* Title;
  };
  for (const Case& c : {Case{std::string(100, '\x01'), "Not a text file"},
                        {"{\\rtf1 some words in it", "Not a text file"},
                        {std::string("\xFF\xFE") + std::string(50, '\x41'), "Not a text file"}}) {
    RunWorld world;
    world.UseFile("/a.txt", c.Content);
    EXPECT_EQ(world.Count(), RunEnd::Refused);
    EXPECT_EQ(world.Messages.Only().Title, c.Title);
  }
}

TEST(RunCount, AsksAboutLargeInputOnceAndOnlyWithoutAnOutputFile) {
  const std::string large = ManyPhrases(30000).substr(0, 200001);
  struct Case {
    size_t Bytes;
    const char* Output;
    Answer Given;
    RunEnd End;
    bool Asks;
    const char* OutputAfter;
  };
  for (const Case c : {Case{200000, "", Answer::Cancel, RunEnd::Counted, false, ""},
                       {200001, "/out.txt", Answer::Cancel, RunEnd::Counted, false, "/out.txt"},
                       {200001, "", Answer::Cancel, RunEnd::Abandoned, true, ""},
                       {200001, "", Answer::No, RunEnd::Counted, true, ""},
                       {200001, "", Answer::Yes, RunEnd::Counted, true, "/chosen.txt"}}) {
    RunWorld world;
    world.UseFile("/a.txt", large.substr(0, c.Bytes));
    world.Request.OutputPath = c.Output;
    world.Messages.WillAnswer(questions::kLargeInput, c.Given);
    world.View.ChosenOutput = "/chosen.txt";
    EXPECT_EQ(world.Count(), c.End);
    EXPECT_EQ(world.Messages.Shown.size(), c.Asks ? 1u : 0u);
    EXPECT_EQ(world.View.Choices, c.Given == Answer::Yes ? 1 : 0);
    EXPECT_EQ(world.Run.OutputPath, c.OutputAfter);
    EXPECT_EQ(testing::Value(world.View.ShownSizes, Contains("|")), c.End == RunEnd::Abandoned);
    if (c.Asks) {
      EXPECT_EQ(world.Messages.Only().Title, "Large input file");
    }
  }
}

TEST(RunCount, ShowsTheProgressOfLargerFilesOnly) {
  for (const size_t bytes : {10240U, 10241U}) {
    RunWorld world;
    world.UseFile("/a.txt", ManyPhrases(3000).substr(0, bytes));
    EXPECT_EQ(world.Count(), RunEnd::Counted);
    EXPECT_EQ(world.Progress.BytesTotal, bytes > 10240 ? bytes : 0U);
    EXPECT_EQ(world.Progress.BytesRead, bytes);
  }
}

TEST(RunCount, GoesOnWithoutAnOutputFileWhenNoneIsChosen) {
  RunWorld world;
  world.UseFile("/a.txt", ManyPhrases(60000));
  world.Messages.WillAnswer(questions::kLargeInput, Answer::Yes);
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.Run.OutputPath, "");
}

TEST(RunCount, ReadsMarkUpByTheExtension) {
  for (const auto& [path, listed] :
       {std::pair{"/a.html", "2 big cat"}, {"/a.txt", "2 big cat, 2 cat span"}}) {
    RunWorld world;
    world.UseFile(path, "big cat<span> big cat<span>");
    world.UseLengths(2, 2);
    world.Count();
    EXPECT_EQ(world.Listed().substr(0, 9), "2 big cat");
    EXPECT_EQ(world.Listed() == "2 big cat", std::string(path) == "/a.html");
  }
}

TEST(RunCount, TellsHowMuchOfAMarkUpFileIsText) {
  for (const auto& [path, text] : {std::pair{"/a.html", "|Text: 24 bytes"}, std::pair{"/a.txt", "|"}}) {
    RunWorld world;
    world.UseFile(path, "<p>the big cat</p>, the big cat");
    world.UseLengths(3, 3, 2);
    world.Count();
    EXPECT_TRUE(world.View.ShownSizes.back().ends_with(text)) << world.View.ShownSizes.back();
  }
}

TEST(RunCount, TellsWhatBecameOfTheWords) {
  RunWorld world;
  const std::string w40(40, 'w');
  world.UseFile("/a.txt", "it is the hmmmm of " + w40 + " " + w40 + " " + w40 + " cat\r\n");
  world.UseLengths(2, 3, 1);
  world.Request.Rules.LongWordSize = 40;
  world.Request.Rules.IgnoreRepetitions = false;
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  const RunSummary& facts = world.Run.Facts;
  EXPECT_EQ(facts.Words.Read(), 9u);
  EXPECT_EQ(facts.Words.Taken, 6u);
  EXPECT_EQ(facts.Words.DroppedFor(DropReason::Short), 3u);
  EXPECT_EQ(facts.Words.Dropped(), 3u);
  EXPECT_EQ(facts.LongPhrases, 1u) << "of three long words";
}

std::string Document(const char* name) {
  std::ifstream file(std::string(KORV_TEST_DATA) + "/docx/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(RunCount, CountsADocumentAndKeepsItsTextOnlyWhenAsked) {
  for (const bool keep : {false, true}) {
    RunWorld world;
    world.UseFile("/d/market.docx", Document("market.docx"));
    world.UseLengths(2, 2, 1);
    world.Request.ExtractTextFromDocx = keep;
    EXPECT_EQ(world.Count(), RunEnd::Counted);
    EXPECT_GT(world.Run.Facts.Words.Taken, 0u);
    const auto text = world.Files.Content("/d/extracted_text/market.docx.txt");
    EXPECT_EQ(text.has_value(), keep);
    EXPECT_THAT(world.View.ShownSizes.back(), testing::HasSubstr("|Text: "));
    EXPECT_TRUE(world.Files.TemporaryIsClean());
    if (!keep) continue;
    RunWorld again;
    again.UseFile("/text.txt", *text);
    again.UseLengths(2, 2, 1);
    again.Count();
    EXPECT_EQ(again.Listed(), world.Listed());
  }
}

TEST(RunCount, RefusesADamagedDocument) {
  RunWorld world;
  world.UseFile("/d/market.docx", Document("market.docx").substr(0, 300));
  EXPECT_EQ(world.Count(), RunEnd::Refused);
  EXPECT_EQ(world.Messages.Shown.size(), 1u);
  EXPECT_EQ(world.View.ShownSizes.back(), "|");
  EXPECT_TRUE(world.Files.TemporaryIsClean());
}

TEST(RunCount, RefusesACFileWhenItsCommentMarkersCouldBeWords) {
  for (const char* path : {"/a.c", "/a.txt"}) {
    RunWorld world;
    world.UseFile(path, "some words // and more");
    world.Request.Rules.AllowForwardslashes = true;
    EXPECT_EQ(world.Count(), std::string(path) == "/a.c" ? RunEnd::Refused : RunEnd::Counted);
    EXPECT_EQ(world.Messages.Shown.size(), std::string(path) == "/a.c" ? 1u : 0u);
  }
}

TEST(RunCount, AsksOncePerPathWhetherTextIsUtf8) {
  RunWorld world;
  world.UseFile("/a.txt", "größer größer größer größer");
  world.UseLengths(2, 2);
  for (int k = 0; k < 2; ++k) {
    EXPECT_EQ(world.Count(), RunEnd::Counted);
    EXPECT_EQ(world.Listed(), "3 größer größer");
  }
  EXPECT_EQ(world.Messages.Only().Title, "Text encoding");
}

TEST(RunCount, TellsHowATextWasRead) {
  struct Case {
    const char* Path;
    std::string Text;
    Answer Utf8;
    EncodingCounts Expected;
    const char* Kind;
  };
  for (const Case& c :
       {Case{"/a.txt", "plain words", Answer::Yes, {.Ascii = 1}, ""},
        {"/a.txt", "caf\xE9 noir", Answer::Yes, {.Ansi = 1}, ""},
        {"/a.txt", "plain words\ncaf\xE9 noir\n", Answer::Yes, {.Ansi = 1}, "This is a Unix-type file."},
        {"/a.txt", "caf\xC3\xA9 noir", Answer::Yes, {.Utf8 = 1}, "This is a UTF-8 text file."},
        {"/a.txt", "caf\xC3\xA9 noir", Answer::No, {.Ansi = 1}, ""},
        {"/a.txt", "\xEF\xBB\xBFplain words", Answer::Yes, {.Utf8 = 1}, "This is a UTF-8 text file."},
        {"/a.xml",
         "<a>caf\xC3\xA9 \xFF\xC3</a>",
         Answer::Yes,
         {.Utf8 = 1, .IllFormed = 2},
         "This is a UTF-8 text file."}}) {
    RunWorld world;
    world.Messages.WillAnswer(questions::kTextEncoding, c.Utf8);
    world.UseFile(c.Path, c.Text);
    EXPECT_EQ(world.Count(), RunEnd::Counted);
    EXPECT_EQ(world.Run.Facts.Encodings, c.Expected) << c.Text;
    EXPECT_EQ(world.Run.FileKind, c.Kind) << c.Text;
    const bool isUtf8 = c.Expected.Utf8 == 1;
    EXPECT_EQ(world.View.FileKinds.back(), isUtf8 ? "This is a UTF8 file." : "") << c.Text;
  }
}

TEST(RunCount, CountsTheFilesOfAFolderByTheirEncoding) {
  RunWorld world;
  world.Files.Add("/t/ascii.txt", "plain words");
  world.Files.Add("/t/ansi.txt", "caf\xE9 noir");
  world.Files.Add("/t/utf8.txt", "caf\xC3\xA9 noir");
  world.Files.Add("/t/more.txt", "caf\xC3\xA9 noir" + std::string(20000, ' ') + "\xFF");
  world.UseFolder("/t");
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.Run.Facts.Encodings, (EncodingCounts{.Ascii = 1, .Ansi = 1, .Utf8 = 2, .IllFormed = 1}));
  EXPECT_EQ(world.Messages.Shown.size(), 1u) << "asked once for the whole run";
}

TEST(RunCount, AsksAboutTheEncodingOnlyWhereTheTextNeedsIt) {
  RunWorld world;
  const std::string words = "the big cat\n";
  std::string text;
  while (text.size() < 100'000) text += words;
  uint64_t wordsThen = 0;
  world.Messages.OnShow = [&](const Message& message) {
    if (message.Question == questions::kTextEncoding) wordsThen = world.Progress.Words;
  };
  world.UseFile("/a.txt", text + "caf\xC3\xA9\n");
  world.Count();
  EXPECT_EQ(world.Messages.Shown.size(), 1u);
  EXPECT_EQ(wordsThen, text.size() / words.size() * 3);
}

TEST(RunCount, RefusesAFileWhoseReadingFails) {
  RunWorld reference;
  reference.UseFile("/a.txt", ManyPhrases(20000));
  reference.Count();
  for (int call = 1; call < 12; ++call) {
    RunWorld world;
    world.UseFile("/a.txt", ManyPhrases(20000));
    world.Files.FailCall(call);
    const RunEnd end = world.Count();
    // The sizes that are asked for in advance are of no consequence; all else ends the run with a message.
    if (end == RunEnd::Counted) {
      EXPECT_EQ(world.Run.Facts.Words.Taken, reference.Run.Facts.Words.Taken) << call;
    } else {
      EXPECT_EQ(end, RunEnd::Refused) << call;
      EXPECT_EQ(world.Messages.Shown.size(), 1u) << call;
    }
  }
}

// ---- The clipboard and streams.

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
  const char* noWords = "The text on the clipboard does not consist\r\nsolely of natural language words.";
  for (const Case& c :
       {Case{"", "There is no text on the clipboard.", "Invalid input"},
        {"12 34 ...", noWords, "Invalid input"},
        {std::string("words ") + std::string(10, '\x01'), noWords, "Invalid input"},
        {std::string(100001, 'a'),
         "There are 100,001 characters in the text on the clipboard.\r\nThe maximum permitted "
         "is 100,000.  If possible,\r\ncount word frequencies for this text using an input "
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

// ---- Folders.

TEST(RunCount, CountsAFolderInItsOrderAndSkipsWhatCannotBeRead) {
  RunWorld world;
  world.Files.Add("/t/b.txt", "the big cat");
  world.Files.Add("/t/A.txt", "the big dog");
  world.Files.Add("/t/empty.txt", "");
  world.Files.Add("/t/tiny.txt", "abc");
  world.Files.Add("/t/binary.txt", std::string(50, '\x02'));
  world.Files.Add("/t/rich.txt", "{\\rtf1 words and more");
  world.Files.Add("/t/broken.docx", "PK" + std::string(100, 'x'));
  world.Files.Add("/t/page.js", "the big script");
  world.Files.Add("/t/sub/c.txt", "the big cat");
  world.UseFolder("/t/");
  world.UseLengths(2, 3);
  world.Request.IncludeSubfolders = true;
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.Listed(), "3 the big, 2 the big cat");
  const RunSummary& facts = world.Run.Facts;
  EXPECT_EQ(facts.InputPath, "/t");
  EXPECT_EQ(facts.FilesScanned, 3u);
  EXPECT_EQ(facts.FoldersScanned, 2u);
  EXPECT_TRUE(facts.IncludeSubfolders);
  std::vector<std::string> skipped;
  for (const SkippedFile& file : facts.SkippedFiles) skipped.push_back(file.Path + ": " + file.Reason);
  EXPECT_THAT(skipped, ElementsAre(Below("/t", "binary.txt") + ": is not a text file",
                                   Below("/t", "broken.docx") + ": is not a readable .docx file",
                                   Below("/t", "empty.txt") + ": is zero-length",
                                   Below("/t", "rich.txt") + ": is an RTF file",
                                   Below("/t", "tiny.txt") + ": contains only from 1 to 4 bytes"));
  EXPECT_THAT(world.View.InputFiles,
              ElementsAre(Below("/t", "A.txt"), Below("/t", "b.txt"), Below("/t", "binary.txt"),
                          Below("/t", "broken.docx"), Below("/t", "empty.txt"), Below("/t", "rich.txt"),
                          Below("/t", "tiny.txt"), Below("/t", "sub/c.txt")));
  EXPECT_THAT(world.View.Statuses, Contains("Counting files . . ."));
  EXPECT_THAT(world.View.Statuses, Contains("8 files will be scanned."));
  EXPECT_EQ(world.Messages.Only().Title, "Error");  // The broken document.
  EXPECT_TRUE(world.Messages.Only().Text.ends_with(" when processing broken.docx"));
}

TEST(RunCount, TellsOfTheFirstBrokenDocumentOfAFolderAndListsAll) {
  RunWorld world;
  world.Files.Add("/t/1.docx", "PK" + std::string(100, 'x'));
  world.Files.Add("/t/2.docx", Document("market.docx").substr(0, 300));
  world.Files.Add("/t/3.docx", Document("market.docx"));
  world.Files.Add("/t/4.docx", "PK" + std::string(100, 'y'));
  world.UseFolder("/t");
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.Messages.Only().Text, "Not a readable .docx file when processing 1.docx");
  EXPECT_EQ(world.Messages.Only().Title, "Error");
  std::vector<std::string> skipped;
  for (const SkippedFile& file : world.Run.Facts.SkippedFiles)
    skipped.push_back(file.Path + ": " + file.Reason);
  EXPECT_THAT(skipped, ElementsAre(Below("/t", "1.docx") + ": is not a readable .docx file",
                                   Below("/t", "2.docx") + ": is not a readable .docx file",
                                   Below("/t", "4.docx") + ": is not a readable .docx file"));
  EXPECT_EQ(world.Run.Facts.FilesScanned, 1u);

  world.Messages.Forget();
  world.Count();
  EXPECT_EQ(world.Messages.Shown.size(), 1u) << "the next run tells again";
}

TEST(RunCount, WithoutATemporaryFolderAFolderOfDocumentsTellsItOnce) {
  RunWorld world;
  for (const char* name : {"/t/1.docx", "/t/2.docx", "/t/3.docx"})
    world.Files.Add(name, Document("market.docx"));
  world.Files.Refuse("/tmp", FileFault::NoSpace);
  world.UseFolder("/t");
  world.Count();
  EXPECT_EQ(world.Messages.Only().Text, "Unable to create temporary folder when processing 1.docx");
  EXPECT_EQ(world.Run.Facts.SkippedFiles.size(), 3u);
}

TEST(RunCount, TellsOnceThatExtractedTextsCannotBeWritten) {
  RunWorld world;
  for (const char* name : {"/t/1.docx", "/t/2.docx"}) world.Files.Add(name, Document("market.docx"));
  world.Files.Refuse("/t/extracted_text", FileFault::PermissionDenied);
  world.UseFolder("/t");
  world.Request.ExtractTextFromDocx = true;
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.Messages.Shown.size(), 1u);
  EXPECT_EQ(world.Run.Facts.FilesScanned, 2u);
  EXPECT_THAT(
      world.Run.Facts.Notices,
      ElementsAre(AllOf(testing::StartsWith("The text of " + Below("/t", "2.docx") + " was not written ("),
                        testing::EndsWith(")."))));
}

TEST(RunCount, TellsOfEachFileOfAFolderWhatItTellsOfASingleOne) {
  RunWorld world;
  world.Files.Add("/t/a.txt", "the big cat");
  world.Files.Add("/t/b.html", "<p>the big cat</p>");
  world.Files.Add("/t/empty.txt", "");
  world.Files.Add("/t/sub/c.txt", "\xEF\xBB\xBFthe big cat sat");
  world.UseFolder("/t");
  world.Request.IncludeSubfolders = true;
  std::vector<std::string> moments;
  world.Yielder.OnTurn = [&] {
    if (!world.Progress.CountingFiles)
      moments.push_back(ProgressCountText(world.Progress.FilesRead, world.Progress.FoldersRead));
  };
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_THAT(world.View.ShownSizes,
              ElementsAre("Filesize: 11 bytes|", "Filesize: 18 bytes|", "Filesize: 18 bytes|Text: 11 bytes",
                          "Filesize: 0 bytes|", "Filesize: 18 bytes|"));
  EXPECT_THAT(world.View.FileKinds, ElementsAre("", "", "This is a UTF8 file."));
  for (const char* moment : {"0 files in 1 folder", "1 file in 1 folder", "3 files in 2 folders"})
    EXPECT_THAT(moments, Contains(moment));
  EXPECT_EQ(moments.back(), "4 files in 2 folders");
}

TEST(RunCount, NoFailureOfTheDiskLosesWordsOfAFolderInSilence) {
  const auto fill = [](RunWorld& world) {
    world.Files.Add("/t/a.txt", ManyPhrases(20000));
    world.Files.Add("/t/b.txt", "the big cat");
    world.Files.Add("/t/sub/c.txt", "the big dog");
    world.UseFolder("/t");
    world.Request.IncludeSubfolders = true;
  };
  RunWorld whole;
  fill(whole);
  ASSERT_EQ(whole.Count(), RunEnd::Counted);
  bool readInPart = false;
  for (int call = 1;; ++call) {
    RunWorld world;
    fill(world);
    world.Files.FailCall(call);
    const RunEnd end = world.Count();
    if (!world.Files.FailureHappened()) break;
    const RunSummary& facts = world.Run.Facts;
    if (end != RunEnd::Counted) {
      // Only what is wrong with the chosen folder itself ends the run.
      EXPECT_EQ(end, RunEnd::Refused) << call;
      EXPECT_LE(call, 2);
      EXPECT_EQ(world.Messages.Shown.size(), 1u) << call;
    } else if (facts.Words.Taken != whole.Run.Facts.Words.Taken) {
      EXPECT_EQ(facts.SkippedFiles.size() + facts.Notices.size(), 1u) << call;
    }
    for (const std::string& notice : facts.Notices)
      readInPart = readInPart ||
                   notice == "File " + Below("/t", "a.txt") + " was read only in part (Input/output error).";
  }
  EXPECT_TRUE(readInPart);
}

TEST(RunCount, RefusesFoldersThatCannotBeCounted) {
  struct Case {
    const char* Folder;
    const char* Output;
    const char* Pattern;
    bool Subfolders;
    const char* Text;
    const char* Title;
  };
  for (const Case c :
       {Case{"", "", "", false, "Folder not specified.", "Error"},
        {"/none", "", "", false, "Folder does not exist", "Invalid input"},
        {"/outer", "", "", true, "Folder contains no files.", "Nothing to do"},
        {"/t", "/t/out.txt", "", false, "The output file cannot be in the folder or a subfolder.",
         "Invalid output file"},
        {"/t", "/t2/out.txt", "", true, "The output file cannot be in the folder or a subfolder.",
         "Invalid output file"},
        {"/t", "", "a<b", false, "File pattern 'a<b' contains an invalid character.", "Invalid input"},
        {"/t", "", "*.xyz", false, "No scanable files as specified *.xyz were found in this folder.",
         "No files found"},
        {"/t", "", "*.xyz", true,
         "No scanable files as specified *.xyz were found in this folder or in its subfolders.",
         "No files found"},
        {"/scripts", "", "", false, "No scanable files were found in this folder.", "No files found"}}) {
    RunWorld world;
    world.Files.Add("/t/a.txt", kText);
    world.Files.Add("/t2/a.txt", kText);
    world.Files.Add("/outer/inner/a.txt", kText);
    world.Files.Add("/scripts/a.js", kText);
    world.UseFolder(c.Folder);
    world.Request.OutputPath = c.Output;
    world.Request.Selection.Patterns = SplitPatterns(c.Pattern);
    world.Request.IncludeSubfolders = c.Subfolders;
    EXPECT_EQ(world.Count(), RunEnd::Refused) << c.Text;
    EXPECT_EQ(world.Messages.Only().Text, c.Text);
    EXPECT_EQ(world.Messages.Only().Title, c.Title);
  }
}

TEST(RunCount, WantsAnOutputFileForSeveralFilesWhereTheTextBoxIsSmall) {
  for (const int fileCount : {1, 2})
    for (const bool needed : {false, true})
      for (const char* output : {"", "/out.txt"}) {
        RunWorld world;
        for (int k = 0; k < fileCount; ++k) world.Files.Add("/t/" + std::to_string(k) + ".txt", kText);
        world.UseFolder("/t");
        world.Request.SeveralFilesNeedOutput = needed;
        world.Request.OutputPath = output;
        const bool refused = fileCount > 1 && needed && !*output;
        EXPECT_EQ(world.Count(), refused ? RunEnd::Refused : RunEnd::Counted);
        if (refused) {
          EXPECT_EQ(world.Messages.Only().Title, "Multiple files/folders");
        }
      }
}

TEST(RunCount, ChecksCommentMarkersOnceForAFolderWithACFile) {
  RunWorld world;
  world.Files.Add("/t/a.c", "words in here");
  world.Files.Add("/t/b.c", "words in here");
  world.Files.Add("/t/c.txt", "words in here");
  world.UseFolder("/t");
  world.Request.Rules.AllowForwardslashes = true;
  EXPECT_EQ(world.Count(), RunEnd::Refused);
  EXPECT_EQ(world.Messages.Only().Title, "Error");
  world.Messages.Forget();
  world.Request.Selection.Patterns = {"*.txt"};
  EXPECT_EQ(world.Count(), RunEnd::Counted);
}

TEST(RunCount, AsksOncePerFolderRunWhetherTextIsUtf8) {
  RunWorld world;
  world.Files.Add("/t/a.txt", "größer als größer");
  world.Files.Add("/t/b.txt", "größer als größer");
  world.UseFolder("/t");
  world.Count();
  EXPECT_EQ(world.Messages.Shown.size(), 1u);
  world.Count();
  EXPECT_EQ(world.Messages.Shown.size(), 2u);
}

TEST(RunCount, TellsOnceOfAFolderThatCannotBeRead) {
  RunWorld world;
  world.Files.Add("/t/a.txt", kText);
  world.Files.Add("/t/locked/b.txt", kText);
  world.Files.Refuse("/t/locked", FileFault::PermissionDenied);
  world.UseFolder("/t");
  world.Request.IncludeSubfolders = true;
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.View.Notices.size(), 1u);
  EXPECT_EQ(world.Run.Facts.FoldersScanned, 1u);
}

TEST(RunCount, NothingOfAnEarlierRunIsLeft) {
  RunWorld world;
  world.Files.Add("/t/empty.txt", "");
  world.Files.Add("/t/a.txt", kText);
  world.UseFolder("/t");
  world.Count();
  EXPECT_EQ(world.Run.Facts.SkippedFiles.size(), 1u);
  world.UseFile("/b.txt", "other words entirely");
  world.UseLengths(2, 2, 1);
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_THAT(world.Run.Facts.SkippedFiles, IsEmpty());
  EXPECT_EQ(world.Run.Facts.FilesScanned, 0u);
  EXPECT_EQ(world.Listed(), "1 other words, 1 words entirely");
}

// ---- Word rules and lists.

TEST(RunCount, AppliesTheFourModesOfWordsToIgnore) {
  struct Case {
    IgnoreRule Mode;
    const char* Listed;
  };
  for (const Case c : {Case{IgnoreRule::Allow, "2 cat and, 2 the cat"},
                       {IgnoreRule::ExcludeAll, "2 cat and, 2 the cat"},
                       {IgnoreRule::ExcludeWith, "2 dog sat"},
                       {IgnoreRule::Remove, "2 cat dog, 2 dog sat"}}) {
    RunWorld world;
    world.UseFile("/a.txt", "the cat and dog sat. the cat and dog sat.");
    world.UseLengths(2, 2);
    world.Request.Options.IgnoreMode = c.Mode;
    world.Request.Lists.TypedWordsToIgnore = {"the", "and"};
    world.Count();
    EXPECT_TRUE(world.Run.Facts.WordsToIgnoreInUse);
    if (c.Mode == IgnoreRule::Allow || c.Mode == IgnoreRule::ExcludeAll)
      EXPECT_EQ(world.Listed(), "2 and dog, 2 cat and, 2 dog sat, 2 the cat");
    else
      EXPECT_EQ(world.Listed(), c.Listed);
  }
}

TEST(RunCount, TakesCaseOfListsFromTheRules) {
  RunWorld world;
  world.UseFile("/a.txt", "The Cat. The Cat. the cat. the cat.");
  world.UseLengths(2, 2);
  world.Request.Rules.CaseSignificant = true;
  world.Request.Lists.CountOnly = {"<^The Cat$>"};
  world.Count();
  EXPECT_EQ(world.Listed(), "2 The Cat");
}

// ---- Stopping.

TEST(AskToStop, StopsOnYesOnly) {
  for (const bool yes : {false, true}) {
    RunWorld world;
    if (yes) world.Messages.WillAnswer(questions::kReallyStop, Answer::Yes);
    AskToStop(world.Messages, world.Yielder, world.View);
    EXPECT_EQ(world.Messages.Only().Text, "Really stop?");
    EXPECT_EQ(world.Messages.Only().DefaultAnswer, Answer::No);
    EXPECT_EQ(world.Yielder.Stopped(), yes);
    EXPECT_EQ(world.View.Statuses.empty(), !yes);
    if (yes) {
      EXPECT_THAT(world.View.Statuses, ElementsAre("Counting of all phrases was stopped."));
    }
  }
}

std::string LinesOfWords(int lines) {
  std::string text;
  for (int k = 0; k < lines; ++k) text += "the big cat sat on line " + ManyPhrases(k % 7 + 1) + "\n";
  return text;
}

TEST(RunCount, AStopAtAnyMomentAsksOnceAndListsWhatWasRead) {
  const std::string text = LinesOfWords(30);
  for (uint64_t call = 1;; ++call) {
    RunWorld world;
    world.UseFile("/a.txt", text);
    world.UseLengths(2, 4);
    world.Yielder.StopAtCall(call);
    world.Messages.WillAnswer(questions::kCountingInterrupted, Answer::Yes);
    EXPECT_EQ(world.Count(), RunEnd::Counted);
    if (!world.Yielder.Stopped() && world.Messages.Shown.empty()) break;

    // The same as a text that ends there, whatever the stage in which the stop came.
    const bool cut = world.Run.Facts.Options.Stopped;
    size_t end = 0;
    for (uint64_t line = 0; line < (cut ? call : 30); ++line) end = text.find('\n', end) + 1;
    RunWorld shorter;
    shorter.UseFile("/a.txt", text.substr(0, end));
    shorter.UseLengths(2, 4);
    shorter.Count();
    EXPECT_EQ(world.Listed(), shorter.Listed()) << call;
    EXPECT_EQ(world.Run.Table.PhraseCount(), shorter.Run.Table.PhraseCount());
    if (world.Yielder.Stopped()) continue;  // The very last call: nothing was left to stop.
    EXPECT_TRUE(world.Run.Interrupted);
    EXPECT_EQ(world.Messages.Only().Text,
              "The operation was stopped before all phrases were counted.\r\n"
              "Do you wish to list those which were were found?");
    EXPECT_EQ(world.Messages.Only().Title, "Counting interrupted");
  }
}

TEST(RunCount, AStopAnsweredWithNoEndsTheRun) {
  RunWorld world;
  world.UseFile("/a.txt", LinesOfWords(30));
  world.Yielder.StopAtCall(5);
  world.Messages.WillAnswer(questions::kCountingInterrupted, Answer::No);
  EXPECT_EQ(world.Count(), RunEnd::Stopped);
  EXPECT_EQ(world.View.Statuses.back(), "Stopped");
  EXPECT_FALSE(world.Yielder.Stopped());
}

TEST(RunCount, AStopBeforeAnythingWasReadEndsTheRunInSilence) {
  RunWorld world;
  world.UseFile("/a.txt", "word\n" + LinesOfWords(5));
  world.Yielder.StopAtCall(1);
  EXPECT_EQ(world.Count(), RunEnd::Stopped);
  EXPECT_THAT(world.Messages.Shown, IsEmpty());
}

TEST(RunCount, AStopBeforeAnyPhraseWasReadEndsTheRunInSilence) {
  RunWorld world;
  // Words enough for many phrases, but a period behind each of them.
  std::string words;
  for (int k = 0; k < 50; ++k) words += "word.\n";
  world.UseFile("/a.txt", words + LinesOfWords(5));
  world.UseLengths(2, 4);
  world.Yielder.StopAtCall(40);
  EXPECT_EQ(world.Count(), RunEnd::Stopped);
  EXPECT_THAT(world.Messages.Shown, IsEmpty());
}

TEST(RunCount, AStopWhileFilesAreCountedEndsTheRun) {
  RunWorld world;
  for (int k = 0; k < 5; ++k) world.Files.Add("/t/" + std::to_string(k) + ".txt", kText);
  world.UseFolder("/t");
  world.Yielder.StopAtCall(3);
  EXPECT_EQ(world.Count(), RunEnd::Stopped);
  EXPECT_EQ(world.View.Statuses.back(), "Stopped while counting files (so far: 2).");
  EXPECT_THAT(world.Messages.Shown, IsEmpty());
}

TEST(RunCount, AStopBetweenFilesListsTheFilesRead) {
  RunWorld world;
  for (int k = 0; k < 5; ++k) world.Files.Add("/t/" + std::to_string(k) + ".txt", "the big cat");
  world.UseFolder("/t");
  world.UseLengths(2, 2);
  world.Messages.WillAnswer(questions::kCountingInterrupted, Answer::Yes);
  world.Yielder.StopAtCall(10);  // Five while counting files; then two per file.
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_TRUE(world.Run.Facts.Options.Stopped);
  EXPECT_LT(world.Run.Facts.FilesScanned, 5u);
  EXPECT_EQ(world.Listed().substr(2),
            "big cat, " + std::to_string(world.Run.Facts.FilesScanned) + " the big");
}

TEST(RunCount, AStopRequestedBeforeTheRunStopsIt) {
  RunWorld world;
  world.UseFile("/a.txt", kText);
  world.Yielder.RequestStop();
  EXPECT_EQ(world.Count(), RunEnd::Stopped);
  EXPECT_EQ(world.Run.Facts.Words.Read(), 0u);
}

// ---- What nobody foresaw.

TEST(RunCount, ShowsWhatNobodyForesaw) {
  for (const bool memory : {false, true}) {
    RunWorld world;
    world.UseFile("/a.txt", kText);
    world.Yielder.OnTurn = [&] {
      if (memory) throw std::bad_alloc();
      throw std::runtime_error("surprise");
    };
    EXPECT_EQ(world.Count(), RunEnd::Failed);
    EXPECT_EQ(world.Messages.Only().Text,
              memory ? "Insufficient memory" : "At RunCount error # 5.\r\nDescription: surprise");
  }
}

// ---- Ranks by number of files.

TEST(SetUpChainFor, FollowsTheReport) {
  RunWorld world;
  world.Files.Add("/t/a.txt", "big cat big cat big cat tall dog");
  world.Files.Add("/t/b.txt", "tall dog");
  world.UseFolder("/t");
  world.UseLengths(2, 2);
  world.Request.Rules.TerminateAtEndOfLine = true;
  world.Count();
  EXPECT_EQ(world.Listed(), "3 big cat, 2 cat big, 2 tall dog");
  ReportOptions byFiles{.DisplayFormat = 12, .SortByNumberOfFiles = true};
  EXPECT_TRUE(SetUpChainFor(world.Run, byFiles, world.Yielder));
  EXPECT_EQ(world.Listed(), "2 tall dog, 3 big cat, 2 cat big");
  EXPECT_TRUE(SetUpChainFor(world.Run, {}, world.Yielder));
  EXPECT_EQ(world.Listed(), "3 big cat, 2 cat big, 2 tall dog");
  world.Request.Chain = ChainOrderOf(byFiles);
  world.Count();
  EXPECT_EQ(world.Listed(), "2 tall dog, 3 big cat, 2 cat big");
}

TEST(StageTimes, MeasureEveryStage) {
  RunWorld world;
  world.Clock.Step = std::chrono::milliseconds(5);
  world.UseFile("/a.txt", kText);
  world.UseLengths(2, 3);
  world.Count();
  for (const RunStage stage :
       {RunStage::Reading, RunStage::Counting, RunStage::Sorting, RunStage::Exclusion, RunStage::Chain})
    EXPECT_EQ(world.Run.Times.Of(stage), std::chrono::milliseconds(5));
  EXPECT_EQ(world.Run.Times.Of(RunStage::Writing), std::chrono::milliseconds(0));
}

}  // namespace
}  // namespace korv
