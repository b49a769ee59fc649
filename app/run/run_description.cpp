#include "app/run/run_description.h"

#include <span>

#include "app/run/counted.h"
#include "app/run/result_notes.h"
#include "app/run/rules_text.h"
#include "base/size_text.h"
#include "base/time_text.h"
#include "base/translation.h"

namespace korv {

namespace {

constexpr size_t kLongestName = 60;  // characters

std::string Words(const WordCounts& words, const NumberFormat& numbers) {
  const std::string read = Counted(TrCount("%1 word", "%1 words", words.Read()), words.Read(), numbers);
  if (words.Dropped() == 0) return read;
  return Fill(Tr("%1 (%2 taken)"), {read, numbers.Grouped(static_cast<int64_t>(words.Taken))});
}

std::string SideText(const RunSummary& facts, Side side, const NumberFormat& numbers) {
  const SideSize size = SizeOf(facts, side);
  return Fill(
      side == Side::A ? Tr("A: %1, %2, %3") : Tr("B: %1, %2, %3"),
      {Shortened(SideNameOf(facts, side), kLongestName),
       Counted(TrCount("%1 file", "%1 files", size.Files), size.Files, numbers), Words(size.Words, numbers)});
}

/// Where the texts came from: one path a line.
std::string PathsOf(std::span<const SourcePath> paths, const char* side) {
  std::string text;
  for (const SourcePath& path : paths)
    text +=
        (text.empty() ? "" : "\n") +
        (path.What == SourcePath::Kind::StandardInput ? SourceName(TextSource::Clipboard, "") : path.Path);
  return Fill(side, {text});
}

std::string SourceText(const RunSummary& facts) {
  if (facts.SecondSide)
    return PathsOf(facts.Paths, Tr("A: %1")) + "\n" + PathsOf(facts.SecondSide->Paths, Tr("B: %1"));
  const bool hasPath = facts.Options.SourceKind != TextSource::Clipboard && facts.Paths.empty();
  return hasPath ? facts.InputPath : SourceNameOf(facts);
}

const char* IgnoreText(IgnoreRule rule) {
  switch (rule) {
    case IgnoreRule::Allow:
      return Tr("allowed in phrases");
    case IgnoreRule::ExcludeAll:
      return Tr("phrases of nothing else are left out");
    case IgnoreRule::Remove:
      return Tr("taken out of the text");
    case IgnoreRule::ExcludeWith:
      return Tr("phrases with one of them are left out");
  }
  return "";
}

}  // namespace

std::string HeadLineText(const ShownResult& result, const NumberFormat& numbers) {
  const RunSummary& facts = result.Run.Facts;
  const uint64_t phrases = result.Run.Table.PhraseCount();
  const std::string found =
      Counted(TrCount("%1 different phrase", "%1 different phrases", phrases), phrases, numbers) + ", " +
      FormatElapsedCompact(result.Took);
  if (facts.SecondSide)
    return SideText(facts, Side::A, numbers) + "; " + SideText(facts, Side::B, numbers) + "; " + found;
  std::string text = Shortened(SourceNameOf(facts), kLongestName) + ": ";
  if (facts.Options.SourceKind == TextSource::Folder)
    text += Counted(TrCount("%1 file", "%1 files", facts.FilesScanned), facts.FilesScanned, numbers) + ", ";
  return text + Words(facts.Words, numbers) + ", " + found;
}

std::string SharedRulesText(const ShownResult& result) {
  const RunSummary& facts = result.Run.Facts;
  if (!facts.SecondSide) return {};
  return Fill(Tr("Both sides: %1; %2."), {PhrasesText(facts.Options), WordRulesText(result.Request.Rules)});
}

std::string ComparisonNote(const ShownResult& result) {
  if (!result.Run.Facts.SecondSide) return {};
  if (result.Run.Comparison.Drafts)
    return Tr("A is a new version of B: what is new in it, gone, more and less, without a test.");
  return Tr(
      "Phrases stand in each other and depend on each other: the test sorts them out, it proves nothing.");
}

std::string RunTip(const ShownResult& result, const std::string& when, const NumberFormat& numbers) {
  const RunSummary& facts = result.Run.Facts;
  const RunRequest& request = result.Request;
  std::string text =
      SourceText(facts) + "\n" + PhrasesText(facts.Options) + ".\n" + WordRulesText(request.Rules) + ".\n";
  if (const size_t words = request.Lists.FileWordsToIgnore.size() + request.Lists.TypedWordsToIgnore.size();
      words > 0)
    text += Counted(TrCount("%1 word to ignore", "%1 words to ignore", words), words, numbers) + ": " +
            IgnoreText(facts.Options.IgnoreMode) + ".\n";
  if (const size_t entries = request.Lists.CountOnly.size(); entries > 0)
    text +=
        Counted(TrCount("%1 count-only entry", "%1 count-only entries", entries), entries, numbers) + ".\n";
  text += Fill(Tr("Counted at %1 in %2."), {when, FormatElapsedLong(result.Took)}) + "\n";
  if (!result.KeptIn.empty()) text += Fill(Tr("Kept in %1."), {result.KeptIn}) + "\n";
  return text + Fill(Tr("Memory: %1."), {FormatSize(MemoryOf(result), numbers)});
}

uint64_t MemoryOf(const ShownResult& result) {
  return result.Run.Table.Bytes() + result.Run.KeptText.capacity();
}

}  // namespace korv
