#include "app/run/run.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>

#include "app/run/run_request.h"
#include "sources/questions.h"
#include "tests/app/run_texts.h"
#include "tests/app/run_world.h"

namespace korv {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

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
        {"/tiny.txt", "", "File /tiny.txt\ncontains only from 1 to 4 bytes.", "Invalid input file"},
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
  std::string text;
  while (text.size() < 3'000'000) text += "the big cat\n";
  for (const char* end : {"", "cafe\n", "caf\xC3\xA9\n"}) {
    RunWorld world;
    world.UseFile("/a.txt", text + end);
    EXPECT_EQ(world.Count(), RunEnd::Counted);
    const auto asked = std::ranges::count(world.Messages.Shown, questions::kTextEncoding, &Message::Question);
    EXPECT_EQ(asked, std::string_view(end).ends_with("\xA9\n") ? 1 : 0) << end;
    EXPECT_EQ(world.Run.Facts.Words.Taken, text.size() / 12 * 3 + (*end ? 1 : 0));
  }
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
              memory ? "Insufficient memory" : "At RunCount error # 5.\nDescription: surprise");
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

TEST(RunCount, TellsOfAFileThatBecomesShorterWhileItIsRead) {
  RunWorld world;
  std::string text = "\xEF\xBB\xBF";
  for (int i = 0; i < 20000; ++i) text += "big cat sat. ";
  world.UseFile("/a.txt", text);
  world.UseLengths(2, 2);
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_TRUE(world.Run.Facts.Notices.empty());
  EXPECT_EQ(world.Listed(), "20000 big cat, 20000 cat sat");
  world.Files.AfterOpening = [&](const std::filesystem::path& path) {
    world.Files.Shorten(path, 3 + 13 * 1500);
  };
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  const std::vector<std::string> told = {
      "File /a.txt became shorter while it was read: it was counted as far as it went."};
  EXPECT_EQ(world.Run.Facts.Notices, told);
  EXPECT_EQ(world.View.Notices, told);
  EXPECT_EQ(world.Listed(), "1500 big cat, 1500 cat sat");
}

TEST(RunCount, CountsTheSingleWordsOfAFile) {
  RunWorld world;
  world.UseFile("/a.txt", "The cat, the hat. The hatter has the cat.");
  world.Request.OutputPath = "/out.txt";
  world.Request = SingleWordsOf(std::move(world.Request));
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.Listed(), "4 the, 2 cat");
  EXPECT_EQ(world.Run.OutputPath, "");
}

}  // namespace
}  // namespace korv
