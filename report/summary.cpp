#include "report/summary.h"

#include <algorithm>

#include "base/translation.h"
#include "report/folder_paths.h"

namespace korv {

namespace {

// The line about the longest phrase says little about a handful of phrases.
constexpr uint32_t kFewPhrases = 4;

std::string Opening(uint32_t phrases) {
  if (phrases == 0) return "There are no phrases";
  if (phrases == 1) return "There is one phrase";
  return "There are" + NumberWithBlank(phrases) + " phrases";
}

std::string Lengths(const RunOptions& options) {
  if (options.MinWords == options.MaxWords) return " of" + NumberWithBlank(options.MinWords);
  return " with" + NumberWithBlank(options.MinWords) + " to" + NumberWithBlank(options.MaxWords);
}

std::string Times(int minFrequency) {
  if (minFrequency == 1) return " once";
  if (minFrequency == 2) return " twice";
  return NumberWithBlank(minFrequency) + " times";
}

std::string WordsToIgnore(const RunSummary& facts) {
  if (!facts.WordsToIgnoreInUse) return ".";
  switch (facts.Options.IgnoreMode) {
    case IgnoreRule::Remove:
      return " when words to ignore are excluded.";
    case IgnoreRule::ExcludeWith:
      return "\nwhen phrases containing a word to ignore are excluded.";
    case IgnoreRule::ExcludeAll:
      return "\nwhen phrases consisting entirely of words to ignore are excluded.";
    case IgnoreRule::Allow:
      break;
  }
  return "\n(including phrases consisting entirely of words to ignore).";
}

std::string Suggestion(const RunSummary& facts) {
  if (!facts.WordsToIgnoreInUse) return "";
  switch (facts.Options.IgnoreMode) {
    case IgnoreRule::ExcludeWith:
      return "You could try repeating the count without excluding phrases containing a word to ignore.";
    case IgnoreRule::ExcludeAll:
      return "You could try repeating the count without excluding phrases consisting entirely of words to "
             "ignore.";
    case IgnoreRule::Allow:
    case IgnoreRule::Remove:
      break;
  }
  return "";
}

std::string PaddedLeft(std::string text, size_t width) {
  if (text.size() < width) text.insert(0, width - text.size(), ' ');
  return text;
}

}  // namespace

std::string SummaryText(const RunSummary& facts, uint32_t phrases, int longestWords) {
  const RunOptions& options = facts.Options;
  std::string text = Opening(phrases) + Lengths(options);
  text += options.MaxWords == 1 ? " word which" : " words which";
  text += phrases == 1 ? " occurs at least" : " occur at least";
  text += Times(options.MinFrequency) + WordsToIgnore(facts);
  if (options.MinWords != options.MaxWords && phrases >= kFewPhrases && longestWords >= 2)
    text += "\nThe longest phrase has" + NumberWithBlank(longestWords) + " words.";
  text += "\n\n";
  if (phrases == 0) text += Suggestion(facts);
  return text;
}

std::string FilesScannedText(const RunSummary& facts, const NumberFormat& numbers) {
  if (facts.Options.SourceKind != TextSource::Folder) return "";
  // Zero files are "0 file" here: only more than one is a plural.
  std::string text = numbers.Grouped(static_cast<int64_t>(facts.FilesScanned)) + " file";
  if (facts.FilesScanned > 1) text += "s";
  text += " (in " + numbers.Grouped(static_cast<int64_t>(facts.FoldersScanned)) + " folder";
  if (facts.FoldersScanned > 1) text += "s";
  text += facts.FilesScanned == 1 ? ") was" : ") were";
  text += " scanned.\n";
  if (facts.Options.Stopped) text += "Counting was stopped and this list is incomplete.\n";
  return text;
}

std::string ProgressCountText(uint64_t files, uint64_t folders) {
  // Zero files are "0 files" here: only exactly one is a singular.
  return std::to_string(files) + (files == 1 ? " file" : " files") + " in " + std::to_string(folders) +
         (folders == 1 ? " folder" : " folders");
}

std::string NoResultText(const RunSummary& facts) {
  std::string text = "No phrases ";
  if (facts.MinCharacters > 0)
    text += "with at least" + NumberWithBlank(facts.MinCharacters) + " characters\n";
  return text + "satisfying the specified conditions were found.";
}

std::string SkippedFilesText(const RunSummary& facts, size_t most) {
  const size_t count = facts.SkippedFiles.size();
  if (count == 0) return "";
  std::string text = count == 1 ? "1 file was skipped:" : std::to_string(count) + " files were skipped:";
  text += "\n";
  const std::string folder = ShownPath(facts.InputPath);
  for (size_t i = 0; i < std::min(count, most); ++i)
    text += AbbreviatePath(facts.SkippedFiles[i].Path, folder) + ": " +
            Tr(facts.SkippedFiles[i].Reason.c_str()) + "\n";
  if (count > most) text += "and " + std::to_string(count - most) + " more\n";
  return text;
}

std::string NoticesText(const RunSummary& facts) {
  std::string text;
  for (const std::string& notice : facts.Notices) text += notice + "\n";
  return text;
}

StatusLabels StatusLabelTexts(uint32_t phrases, uint64_t occurrences, bool filtered,
                              const NumberFormat& numbers) {
  StatusLabels labels;
  if (phrases == 0) return labels;
  std::string listed = numbers.Grouped(phrases);
  std::string instances = numbers.Grouped(static_cast<int64_t>(occurrences));
  const size_t width = std::max(listed.size(), instances.size());
  // The blank that the other label's text has at its end.
  if (!filtered)
    labels.NumberOfWords = "Number of phrases in this list:" + PaddedLeft(std::move(listed), width + 1);
  labels.NumOccurrences =
      "No. of instances of phrases in this list: " + PaddedLeft(std::move(instances), width);
  return labels;
}

}  // namespace korv
