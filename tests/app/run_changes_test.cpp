#include "app/run/run_changes.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace korv {
namespace {

struct Change {
  const char* Name;
  std::function<void(RunRequest&)> Make;
  const char* Told;  ///< Of the rules; "source" for the source, "" for nothing.
};

RunRequest FileRequest() {
  RunRequest request;
  request.Options.SourceKind = TextSource::SingleFile;
  request.InputPath = "a.txt";
  request.Lists.TypedWordsToIgnore = {"the"};
  return request;
}

void Expect(const RunRequest& counted, const Change& change) {
  RunRequest now = counted;
  change.Make(now);
  const RunChanges changes = ChangesBetween(counted, now);
  const bool source = std::string(change.Told) == "source";
  EXPECT_EQ(changes.Source, source) << change.Name;
  EXPECT_EQ(ChangedRulesText(changes), source ? "" : change.Told) << change.Name;
  EXPECT_EQ(changes.Rules(), !source && *change.Told != 0) << change.Name;
}

TEST(ChangesBetween, ToldByWhatTheyAreAbout) {
  const Change changes[] = {
      {"nothing", [](RunRequest&) {}, ""},
      {"blanks around the path", [](RunRequest& r) { r.InputPath = " a.txt "; }, ""},
      {"another file", [](RunRequest& r) { r.InputPath = "b.txt"; }, "source"},
      {"another kind of source", [](RunRequest& r) { r.Options.SourceKind = TextSource::Clipboard; },
       "source"},
      {"other documents", [](RunRequest& r) { r.Documents.Others = true; }, "source"},
      {"what only folders have", [](RunRequest& r) { r.IncludeSubfolders = true; }, ""},
      {"another output file", [](RunRequest& r) { r.OutputPath = "o.txt"; }, ""},
      {"fewest words", [](RunRequest& r) { r.Options.MinWords = 2; }, "phrase lengths"},
      {"most words", [](RunRequest& r) { r.Options.MaxWords = 7; }, "phrase lengths"},
      {"minimum frequency", [](RunRequest& r) { r.Options.MinFrequency = 1; }, "minimum frequency"},
      {"mode", [](RunRequest& r) { r.Options.IgnoreMode = IgnoreRule::Remove; }, "words to ignore"},
      {"typed words", [](RunRequest& r) { r.Lists.TypedWordsToIgnore.clear(); }, "words to ignore"},
      {"file words", [](RunRequest& r) { r.Lists.FileWordsToIgnore = {"of"}; }, "words to ignore"},
      {"patterns", [](RunRequest& r) { r.Lists.PatternMatchingInWordsToIgnoreFile = true; },
       "words to ignore"},
      {"count-only", [](RunRequest& r) { r.Lists.CountOnly = {"whale"}; }, "count-only entries"},
      {"hyphens", [](RunRequest& r) { r.Rules.AllowHyphens = false; }, "word rules"},
      {"commas", [](RunRequest& r) { r.Rules.AllowCommas = true; }, "word rules"},
      {"case", [](RunRequest& r) { r.Rules.CaseSignificant = true; }, "word rules"},
      {"short words", [](RunRequest& r) { r.Rules.ShortWordSize = 4; }, "word rules"},
      {"long words", [](RunRequest& r) { r.Rules.LongWordSize = 20; }, "word rules"},
      {"ends of phrases", [](RunRequest& r) { r.Rules.TerminateAtComma = true; }, "word rules"},
      {"what the run derives", [](RunRequest& r) { r.Rules.AllowedExtraChars = "-"; }, ""},
  };
  for (const Change& change : changes) Expect(FileRequest(), change);
}

TEST(ChangesBetween, WhatMeansNothingIsNoChange) {
  RunRequest request = FileRequest();
  request.Lists.TypedWordsToIgnore.clear();
  Expect(request, {"mode", [](RunRequest& r) { r.Options.IgnoreMode = IgnoreRule::Remove; }, ""});
  request.Rules.IgnoreShortWords = false;
  Expect(request, {"size of short words", [](RunRequest& r) { r.Rules.ShortWordSize = 9; }, ""});
  request.Options.SourceKind = TextSource::Clipboard;
  Expect(request, {"the file that is not counted", [](RunRequest& r) { r.InputPath = "b.txt"; }, ""});
}

TEST(ChangesBetween, AFolderIsItsFiles) {
  RunRequest request = FileRequest();
  request.Options.SourceKind = TextSource::Folder;
  request.InputPath = "texts";
  const Change changes[] = {
      {"separator", [](RunRequest& r) { r.InputPath = "texts/"; }, ""},
      {"folder", [](RunRequest& r) { r.InputPath = "letters"; }, "source"},
      {"subfolders", [](RunRequest& r) { r.IncludeSubfolders = true; }, "source"},
      {"patterns", [](RunRequest& r) { r.Selection.Patterns = {"*.txt"}; }, "source"},
      {"exclusions", [](RunRequest& r) { r.Selection.Exclusions = {"bak"}; }, "source"},
  };
  for (const Change& change : changes) Expect(request, change);
}

TEST(ChangedRulesText, NamesAll) {
  EXPECT_EQ(ChangedRulesText({.Source = true,
                              .Lengths = true,
                              .MinFrequency = true,
                              .WordsToIgnore = true,
                              .CountOnly = true,
                              .WordRules = true}),
            "phrase lengths, minimum frequency, words to ignore, count-only entries, word rules");
}

TEST(ChangesBetween, ComparisonsAreThoseOfTheirSides) {
  RunRequest counted;
  counted.Options.SourceKind = TextSource::Folder;
  counted.Options.MinFrequency = 3;
  counted.Paths = {{"a.txt", SourcePath::Kind::File}};
  counted.Compared = {{"b", SourcePath::Kind::Folder}};
  const Change changes[] = {
      {"nothing", [](RunRequest&) {}, ""},
      {"a folder that nobody has looked at", [](RunRequest& r) { r.Compared = {{"b/"}}; }, ""},
      {"another side B", [](RunRequest& r) { r.Compared = {{"c"}}; }, "source"},
      {"no side B, and the minimum of other counts",
       [](RunRequest& r) {
         r.Compared.clear();
         r.Options.MinFrequency = 2;
       },
       "source"},
      {"another basis", [](RunRequest& r) { r.Comparison.Basis = ComparisonBasis::Files; }, ""},
      {"another minimum", [](RunRequest& r) { r.Options.MinFrequency = 4; }, "minimum frequency"},
  };
  for (const Change& change : changes) Expect(counted, change);
}

}  // namespace
}  // namespace korv
