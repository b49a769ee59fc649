#include "app/run/result_notes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/app/run_world.h"

namespace korv {
namespace {

using testing::ElementsAre;

/// A result of a file with some phrases, shown in full; to be varied.
struct ResultNotes : testing::Test {
  ResultNotes() {
    Result.Run.Facts.InputPath = "books/moby.txt";
    Result.Run.Facts.Words.Taken = 100;
    Result.Listing.List = {.Phrases = 4, .Occurrences = 9, .Shown = 4, .Unfiltered = 4};
    Result.InSight = true;
  }
  std::vector<ResultNote> All() const { return NotesOf(Result, Now, {}); }
  /// The texts but for that of the source.
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const ResultNote& note : All())
      if (note.Kind != NoteKind::Source) texts.push_back(note.Text);
    return texts;
  }

  ShownResult Result;
  ChosenNow Now;
};

TEST_F(ResultNotes, AFullListOfAFileHasItsSourceAlone) {
  EXPECT_THAT(All(), ElementsAre(ResultNote{NoteKind::Source, "Phrases of moby.txt", {}, "books/moby.txt"}));
}

TEST_F(ResultNotes, OfTheRunAreToldWhereverItsListIs) {
  Result.InSight = false;
  Result.Run.Facts.Options.Stopped = true;
  Now.Changes.Lengths = true;
  Now.FormatAvailable = false;
  std::vector<NoteKind> kinds;
  for (const ResultNote& note : NotesOfRun(Result, Now, {})) kinds.push_back(note.Kind);
  EXPECT_THAT(kinds, ElementsAre(NoteKind::OtherRules, NoteKind::Incomplete));
}

TEST_F(ResultNotes, OutOfSightNothingIsToldButThat) {
  Result.InSight = false;
  Now.Changes.Source = true;
  EXPECT_THAT(All(), ElementsAre(testing::_, ResultNote{NoteKind::NotInSight,
                                                        "The last list is not shown.",
                                                        {NoteAction::ShowLastList}}));
}

TEST_F(ResultNotes, AFilePhrasesWereWrittenToCanBeOpened) {
  Result.Listing.File = "out/report.txt";
  Result.Listing.Bytes = 2048;
  Now.OutputPath = "out/report.txt";
  EXPECT_THAT(All(), ElementsAre(testing::_, ResultNote{NoteKind::Written,
                                                        "4 phrases written to report.txt (2.00 Kb).",
                                                        {NoteAction::OpenFile, NoteAction::OpenFolder},
                                                        "out/report.txt"}));
  Now.OutputPath = "out/other.txt";
  EXPECT_EQ(Texts().at(1), "This list has not been written to the output file other.txt.");
  Now.OutputPath.clear();
  EXPECT_EQ(Texts().at(1), "This list stands in the file only.");
  Result.Listing.List.Phrases = Result.Listing.List.Shown = 1;
  EXPECT_EQ(Texts().at(0), "1 phrase written to report.txt (2.00 Kb).");
}

TEST_F(ResultNotes, AShortenedListSaysByHowMuch) {
  Result.Listing.List = {
      .Outcome = ListOutcome::SinkFull, .Phrases = 3999, .Shown = 1225, .Unfiltered = 3999};
  EXPECT_THAT(Texts(), ElementsAre("1,225 of 3,999 phrases shown: the text box is full."));
  Result.Listing.List.Outcome = ListOutcome::Stopped;
  EXPECT_THAT(Texts(), ElementsAre("The listing was stopped: 1,225 of 3,999 phrases shown."));
  Result.Listing.Failed = true;
  EXPECT_THAT(Texts(), ElementsAre("The listing ended with an error."));
}

TEST_F(ResultNotes, AFilterIsToldWithItsMatches) {
  Result.Listing.Options = {.FilterText = "whale", .FilterActive = true};
  Result.Listing.List.Phrases = Result.Listing.List.Shown = 1;
  Now.Report = Result.Listing.Options;
  EXPECT_THAT(Texts(), ElementsAre("Filtered by \"whale\" (all words): 1 of 4 phrases matches."));
  Now.Report.FilterModeOfWords = FilterMode::Subphrase;
  EXPECT_THAT(Texts(), ElementsAre("Filtered by \"whale\" (all words): 1 of 4 phrases matches.",
                                   "The filter words below are not applied to this list."));
  Now.Report = {};
  EXPECT_THAT(Texts(), ElementsAre("Still filtered by \"whale\" (all words): 1 of 4 phrases matches."));
}

TEST_F(ResultNotes, WhatTheRunLeftOutIsTold) {
  Result.Run.Facts.Options.Stopped = true;
  Result.Request.Lists.CountOnly = {"whale", "ship~"};
  Result.Run.Facts.Words.DroppedBy = {16383, 0, 0, 0, 0, 0};
  Result.Run.Facts.Words.Taken = 55818;
  Result.Run.Facts.LongPhrases = 2;
  Result.Run.Facts.Encodings.IllFormed = 3;
  EXPECT_THAT(Texts(), ElementsAre("Counting was stopped: what came after that is not in this list.",
                                   "Only phrases that match one of the 2 count-only entries were counted.",
                                   "16,383 of 72,201 words left out: shorter than 3 letters.",
                                   "2 phrases of more than 100 characters left out.",
                                   "3 byte sequences that are no UTF-8 were passed over."));
  Result.Request.Lists.CountOnly = {"whale"};
  EXPECT_EQ(Texts().at(1), "Only phrases that match the one count-only entry were counted.");
}

TEST_F(ResultNotes, WordsLeftOutCanBeCountedWhereARuleCanBeLifted) {
  Result.Run.Facts.Words.DroppedBy = {16383, 0, 0, 0, 0, 0};
  EXPECT_THAT(All().back(), testing::Field(&ResultNote::WaysOut,
                                           ElementsAre(NoteAction::CountLeftOut, NoteAction::WordRules)));
  // Words to ignore that are taken out of the text are no matter of the word rules.
  Result.Run.Facts.Words.DroppedBy = {0, 0, 0, 0, 5, 0};
  EXPECT_THAT(All().back(), testing::Field(&ResultNote::WaysOut, ElementsAre(NoteAction::WordRules)));
}

TEST_F(ResultNotes, SkippedFilesAreToldInEveryViewAndWhateverIsInSight) {
  Result.Run.Facts.SkippedFiles = {{"in/a.rtf", "is an RTF file"}};
  const ResultNote one{NoteKind::Skipped, "1 file was skipped.", {NoteAction::ShowSkipped}};
  EXPECT_EQ(All().back(), one);
  EXPECT_THAT(NotesOfRun(Result, Now, {}), ElementsAre(one));
  Result.Run.Facts.SkippedFiles.emplace_back();
  EXPECT_EQ(All().back().Text, "2 files were skipped.");
  Result.InSight = false;
  EXPECT_EQ(All().back().Text, "2 files were skipped.");
}

TEST(WordsLeftOut, AreToldByTheirReasons) {
  CountedRun run;
  WordRules rules;
  EXPECT_EQ(WordsLeftOutText(run, rules, {}), "");
  run.Facts.Words.Taken = 5;
  run.Facts.Words.DroppedBy = {1000, 2, 3, 4, 5, 6};
  rules.ShortWordSize = 4;
  rules.LongWordSize = 40;
  EXPECT_EQ(
      WordsLeftOutText(run, rules, {}),
      "1,020 of 1,025 words left out: 1,000 shorter than 4 letters, 2 longer than 40 letters, 3 without "
      "a letter, 4 with a letter four times in a row, 5 words to ignore, 6 with other than 7-bit "
      "characters");
}

TEST(EncodingTexts, CountWhereThereAreSeveral) {
  RunSummary facts;
  EXPECT_EQ(EncodingText(facts, {}), "");
  facts.Encodings.Utf8 = 1;
  EXPECT_EQ(EncodingText(facts, {}), "UTF-8");
  facts.Encodings = {.Ascii = 1200, .Ansi = 1, .Utf8 = 3};
  EXPECT_EQ(EncodingText(facts, {}), "3 UTF-8, 1 ANSI, 1,200 ASCII");
}

TEST(SourceNames, AreWhatUsersCallThem) {
  EXPECT_EQ(SourceName(TextSource::Clipboard, "a.txt"), "Clipboard");
  EXPECT_EQ(SourceName(TextSource::SingleFile, " books/a.txt "), "a.txt");
  EXPECT_EQ(SourceName(TextSource::Folder, "books/texts/"), "texts");
  EXPECT_EQ(SourceName(TextSource::Folder, "/"), "/");
  EXPECT_EQ(SourceName(TextSource::SingleFile, ""), "");
}

TEST(ShortenedNames, KeepTheirEnds) {
  EXPECT_EQ(Shortened("abcdefgh", 8), "abcdefgh");
  EXPECT_EQ(Shortened("abcdefghi", 8),
            "abc\xE2\x80\xA6"
            "fghi");
  EXPECT_EQ(Shortened("éééééééé", 5),
            "éé\xE2\x80\xA6"
            "éé");
}

// ---- Why there is nothing

struct EmptyResults : testing::Test {
  /// The causes told after a run over `text`.
  std::vector<std::string> CausesOf(const std::string& text) {
    World.Files.Add("/a.txt", text);
    World.Request.InputPath = "/a.txt";
    World.Request.Options.SourceKind = TextSource::SingleFile;
    ShownResult result;
    EXPECT_EQ(World.Count(), RunEnd::Counted);
    result.Run = std::move(World.Run);
    result.Request = World.Request;
    result.InSight = true;
    NoYielder yielder;
    OfferedPhrases offered;
    if (FindOfferedPhrases(result.Run.Table, yielder, offered)) result.Offered = offered;
    std::vector<std::string> texts;
    for (const ResultNote& note : NotesOf(result, {}, {}))
      if (note.Kind == NoteKind::Empty) texts.push_back(note.Text);
    return texts;
  }

  RunWorld World;
};

TEST_F(EmptyResults, TextsWithoutWords) {
  EXPECT_THAT(CausesOf("1 22 333 ...\n"), ElementsAre("There is no word in this text."));
}

TEST_F(EmptyResults, WordsThatAreAllLeftOut) {
  EXPECT_THAT(CausesOf("we go on, so it is\n"), ElementsAre("All words were left out."));
}

TEST_F(EmptyResults, PhrasesThatAreTooRare) {
  World.UseLengths(2, 3, 4);
  EXPECT_THAT(CausesOf("the white whale. the white whale\n"),
              ElementsAre("All 3 different phrases occur less often than 4 times."));
  World.UseLengths(3, 3, 2);
  EXPECT_THAT(CausesOf("the white whale\n"), ElementsAre("The only phrase occurs less often than 2 times."));
}

TEST_F(EmptyResults, RowsThatAreTooShort) {
  World.UseLengths(4, 6);
  EXPECT_THAT(CausesOf("the white whale. the old man\n"),
              ElementsAre("Nowhere do 4 words stand in a row: the longest row has 3."));
}

TEST_F(EmptyResults, PhrasesOfNothingButWordsToIgnore) {
  World.UseLengths(2, 3);
  World.Request.Options.IgnoreMode = IgnoreRule::ExcludeAll;
  World.Request.Lists.TypedWordsToIgnore = {"the", "and", "for"};
  EXPECT_THAT(CausesOf("the and for. the and for\n"),
              ElementsAre("All 6 phrases consist of words to ignore alone."));
}

TEST_F(EmptyResults, PhrasesWithAWordToIgnore) {
  World.UseLengths(2, 3);
  World.Request.Options.IgnoreMode = IgnoreRule::ExcludeWith;
  World.Request.Lists.TypedWordsToIgnore = {"the"};
  EXPECT_THAT(CausesOf("the man the whale the ship the\n"),
              ElementsAre("Nowhere do 2 words stand in a row: the longest row has 1.",
                          "4 of 7 words are to be ignored, and no phrase with such a word is counted."));
}

TEST_F(EmptyResults, PhrasesThatNoCountOnlyEntryMatches) {
  World.UseLengths(2, 3);
  World.Request.Lists.CountOnly = {"ship"};
  EXPECT_THAT(CausesOf("the white whale. the white whale\n"),
              ElementsAre("All 6 phrases match no count-only entry."));
  World.Request.Lists.TypedWordsToIgnore = {"the", "old"};
  World.Request.Options.IgnoreMode = IgnoreRule::ExcludeAll;
  EXPECT_THAT(CausesOf("the old whale.\n"), ElementsAre("1 phrase consists of words to ignore alone.",
                                                        "2 phrases match no count-only entry."));
}

TEST_F(EmptyResults, PhrasesThatAreTooLong) {
  World.UseLengths(3, 3);
  const std::string word = "abcdefghijklmnopqrstuvwxyzabcdefghijklmnop";
  EXPECT_THAT(CausesOf(word + " " + word + " " + word + "\n"),
              ElementsAre("The only phrase has more than 100 characters."));
}

TEST_F(EmptyResults, HaveWaysOut) {
  World.UseLengths(2, 3, 4);
  ShownResult result;
  World.UseFile("/a.txt", "the white whale. the white whale\n");
  EXPECT_EQ(World.Count(), RunEnd::Counted);
  result.Run = std::move(World.Run);
  result.InSight = true;
  const std::vector<ResultNote> notes = NotesOf(result, {}, {});
  ASSERT_EQ(notes.size(), 2U);
  EXPECT_THAT(notes[1].WaysOut, ElementsAre(NoteAction::MinFrequency));
}

TEST(Actions, HaveCaptions) {
  for (int i = 0; i <= static_cast<int>(NoteAction::Lengths); ++i)
    EXPECT_NE(std::string(CaptionOf(static_cast<NoteAction>(i))), "");
}

}  // namespace
}  // namespace korv
