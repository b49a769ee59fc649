#include "app/run/run_changes.h"

#include <algorithm>
#include <tuple>

#include "base/translation.h"
#include "sources/detect/source_checks.h"

namespace korv {

namespace {

/// Whether a path is a folder is known only once somebody has looked.
bool SamePaths(const std::vector<SourcePath>& a, const std::vector<SourcePath>& b) {
  return std::ranges::equal(a, b, [](const SourcePath& x, const SourcePath& y) {
    return TrimmedFolderPath(x.Path) == TrimmedFolderPath(y.Path);
  });
}

bool SameSource(const RunRequest& a, const RunRequest& b) {
  if (a.Options.SourceKind != b.Options.SourceKind || a.Paths != b.Paths ||
      !SamePaths(a.Compared, b.Compared))
    return false;
  switch (a.Options.SourceKind) {
    case TextSource::Clipboard:
      return true;
    case TextSource::SingleFile:
      return TrimmedPath(a.InputPath) == TrimmedPath(b.InputPath) && a.Documents == b.Documents;
    case TextSource::Folder:
      break;
  }
  const bool samePath = !a.Paths.empty() || TrimmedFolderPath(a.InputPath) == TrimmedFolderPath(b.InputPath);
  return samePath && a.IncludeSubfolders == b.IncludeSubfolders &&
         a.Selection.Patterns == b.Selection.Patterns && a.Selection.Exclusions == b.Selection.Exclusions &&
         a.Documents == b.Documents;
}

auto CharactersOf(const WordRules& r) {
  return std::tie(r.AllowHyphens, r.AllowApostrophes, r.AllowUnderscores, r.AllowColons, r.AllowBackslashes,
                  r.AllowForwardslashes, r.AllowPeriods, r.AllowAtSigns, r.AllowNumerals, r.AllowParentheses,
                  r.AllowAmpersands, r.AllowCommas);
}

auto DroppingOf(const WordRules& r) {
  // The size of short words means nothing where they are not ignored.
  return std::tuple(r.CaseSignificant, r.Only7bitASCII, r.IgnoreShortWords ? r.ShortWordSize : 0,
                    r.LongWordSize, r.IgnoreNoLetter, r.IgnoreRepetitions);
}

auto EndsOf(const WordRules& r) {
  return std::tie(r.TerminateAtEndOfLine, r.TerminateAtPeriod, r.TerminateAtComma, r.TerminateAtDoubleQuote,
                  r.TerminateAtTab);
}

bool SameWordRules(const WordRules& a, const WordRules& b) {
  return CharactersOf(a) == CharactersOf(b) && DroppingOf(a) == DroppingOf(b) && EndsOf(a) == EndsOf(b);
}

bool HasWordsToIgnore(const WordFilterSpec& lists) {
  return !lists.FileWordsToIgnore.empty() || !lists.TypedWordsToIgnore.empty();
}

bool SameWordsToIgnore(const RunRequest& a, const RunRequest& b) {
  if (!HasWordsToIgnore(a.Lists) && !HasWordsToIgnore(b.Lists)) return true;
  return a.Options.IgnoreMode == b.Options.IgnoreMode &&
         a.Lists.FileWordsToIgnore == b.Lists.FileWordsToIgnore &&
         a.Lists.TypedWordsToIgnore == b.Lists.TypedWordsToIgnore &&
         a.Lists.PatternMatchingInWordsToIgnoreFile == b.Lists.PatternMatchingInWordsToIgnoreFile;
}

}  // namespace

RunChanges ChangesBetween(const RunRequest& counted, const RunRequest& now) {
  return {.Source = !SameSource(counted, now),
          .Lengths = counted.Options.MinWords != now.Options.MinWords ||
                     counted.Options.MaxWords != now.Options.MaxWords,
          .MinFrequency = counted.Compared.empty() == now.Compared.empty() &&
                          counted.Options.MinFrequency != now.Options.MinFrequency,
          .WordsToIgnore = !SameWordsToIgnore(counted, now),
          .CountOnly = counted.Lists.CountOnly != now.Lists.CountOnly,
          .WordRules = !SameWordRules(counted.Rules, now.Rules)};
}

std::string ChangedRulesText(const RunChanges& changes) {
  std::string text;
  for (const auto& [changed, name] : {std::pair(changes.Lengths, TrLater("phrase lengths")),
                                      {changes.MinFrequency, TrLater("minimum frequency")},
                                      {changes.WordsToIgnore, TrLater("words to ignore")},
                                      {changes.CountOnly, TrLater("count-only entries")},
                                      {changes.WordRules, TrLater("word rules")}}) {
    if (!changed) continue;
    if (!text.empty()) text += ", ";
    text += Tr(name);
  }
  return text;
}

}  // namespace korv
