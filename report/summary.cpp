#include "report/summary.h"

#include <algorithm>

#include "base/translation.h"
#include "report/folder_paths.h"

namespace korv {

namespace {

// The line about the longest phrase says little about a handful of phrases.
constexpr uint32_t kFewPhrases = 4;

std::string Lengths(const RunOptions& options) {
  const std::string least = std::to_string(options.MinWords);
  if (options.MinWords != options.MaxWords)
    return Fill(Tr("with %1 to %2 words"), {least, std::to_string(options.MaxWords)});
  return Fill(TrCount("of %1 word", "of %1 words", static_cast<uint64_t>(options.MaxWords)), {least});
}

std::string Times(int minFrequency) {
  if (minFrequency == 1) return Tr("once");
  if (minFrequency == 2) return Tr("twice");
  return Fill(TrCount("%1 time", "%1 times", static_cast<uint64_t>(minFrequency)),
              {std::to_string(minFrequency)});
}

/// The sentence without its end.
std::string Opening(const RunOptions& options, uint32_t phrases) {
  const std::string lengths = Lengths(options);
  const std::string times = Times(options.MinFrequency);
  if (phrases == 0) return Fill(Tr("There are no phrases %1 which occur at least %2"), {lengths, times});
  if (phrases == 1) return Fill(Tr("There is one phrase %1 which occurs at least %2"), {lengths, times});
  return Fill(TrCount("There is %1 phrase %2 which occurs at least %3",
                      "There are %1 phrases %2 which occur at least %3", phrases),
              {std::to_string(phrases), lengths, times});
}

std::string WordsToIgnore(const RunSummary& facts) {
  if (!facts.WordsToIgnoreInUse) return ".";
  switch (facts.Options.IgnoreMode) {
    case IgnoreRule::Remove:
      return std::string(" ") + Tr("when words to ignore are excluded.");
    case IgnoreRule::ExcludeWith:
      return std::string("\n") + Tr("when phrases containing a word to ignore are excluded.");
    case IgnoreRule::ExcludeAll:
      return std::string("\n") + Tr("when phrases consisting entirely of words to ignore are excluded.");
    case IgnoreRule::Allow:
      break;
  }
  return std::string("\n") + Tr("(including phrases consisting entirely of words to ignore).");
}

std::string Suggestion(const RunSummary& facts) {
  if (!facts.WordsToIgnoreInUse) return "";
  switch (facts.Options.IgnoreMode) {
    case IgnoreRule::ExcludeWith:
      return Tr("You could try repeating the count without excluding phrases containing a word to ignore.");
    case IgnoreRule::ExcludeAll:
      return Tr(
          "You could try repeating the count without excluding phrases consisting entirely of words to "
          "ignore.");
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
  std::string text = Opening(options, phrases) + WordsToIgnore(facts);
  if (options.MinWords != options.MaxWords && phrases >= kFewPhrases && longestWords >= 2)
    text += "\n" + Fill(TrCount("The longest phrase has %1 word.", "The longest phrase has %1 words.",
                                static_cast<uint64_t>(longestWords)),
                        {std::to_string(longestWords)});
  text += "\n\n";
  if (phrases == 0) text += Suggestion(facts);
  return text;
}

std::string FilesScannedText(const RunSummary& facts, const NumberFormat& numbers) {
  if (facts.Options.SourceKind != TextSource::Folder) return "";
  const uint64_t files = facts.FilesScanned;
  const uint64_t folders = facts.FoldersScanned;
  // Zero folders are "0 folder" here: only more than one is a plural.
  const std::string foldersText = Fill(TrCount("%1 folder", "%1 folders", std::max<uint64_t>(folders, 1)),
                                       {numbers.Grouped(static_cast<int64_t>(folders))});
  const char* const pattern =
      files == 0 ? Tr("%1 file (in %2) were scanned.")
                 : TrCount("%1 file (in %2) was scanned.", "%1 files (in %2) were scanned.", files);
  std::string text = Fill(pattern, {numbers.Grouped(static_cast<int64_t>(files)), foldersText}) + "\n";
  if (facts.Options.Stopped)
    text += Tr("Counting was stopped and this list is incomplete.") + std::string("\n");
  return text;
}

std::string ProgressCountText(uint64_t files, uint64_t folders) {
  // Zero files are "0 files" here: only exactly one is a singular.
  return Fill(Tr("%1 in %2"), {Fill(TrCount("%1 file", "%1 files", files), {std::to_string(files)}),
                               Fill(TrCount("%1 folder", "%1 folders", folders), {std::to_string(folders)})});
}

std::string NoResultText(const RunSummary& facts) {
  if (facts.MinCharacters == 0) return Tr("No phrases satisfying the specified conditions were found.");
  return Fill(Tr("No phrases with at least %1 characters\nsatisfying the specified conditions were found."),
              {std::to_string(facts.MinCharacters)});
}

std::string SkippedFilesText(const RunSummary& facts, size_t most) {
  const size_t count = facts.SkippedFiles.size();
  if (count == 0) return "";
  std::string text =
      Fill(TrCount("%1 file was skipped:", "%1 files were skipped:", count), {std::to_string(count)}) + "\n";
  const std::string folder = ShownPath(facts.InputPath);
  for (size_t i = 0; i < std::min(count, most); ++i)
    text += AbbreviatePath(facts.SkippedFiles[i].Path, folder) + ": " +
            Tr(facts.SkippedFiles[i].Reason.c_str()) + "\n";
  if (count > most)
    text += Fill(TrCount("and %1 more", "and %1 more", count - most), {std::to_string(count - most)}) + "\n";
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
    labels.NumberOfWords = Tr("Number of phrases in this list:") + PaddedLeft(std::move(listed), width + 1);
  labels.NumOccurrences =
      Tr("No. of instances of phrases in this list:") + (" " + PaddedLeft(std::move(instances), width));
  return labels;
}

}  // namespace korv
