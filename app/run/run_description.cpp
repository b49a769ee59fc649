#include "app/run/run_description.h"

#include "app/run/result_notes.h"
#include "app/run/rules_text.h"
#include "base/size_text.h"
#include "base/time_text.h"

namespace korv {

namespace {

constexpr size_t kLongestName = 60;  // characters

std::string Counted(uint64_t number, const char* one, const char* many, const NumberFormat& numbers) {
  return numbers.Grouped(static_cast<int64_t>(number)) + " " + (number == 1 ? one : many);
}

std::string Words(const WordCounts& words, const NumberFormat& numbers) {
  const std::string read = Counted(words.Read(), "word", "words", numbers);
  if (words.Dropped() == 0) return read;
  return read + " (" + numbers.Grouped(static_cast<int64_t>(words.Taken)) + " taken)";
}

const char* IgnoreText(IgnoreRule rule) {
  switch (rule) {
    case IgnoreRule::Allow:
      return "allowed in phrases";
    case IgnoreRule::ExcludeAll:
      return "phrases of nothing else are left out";
    case IgnoreRule::Remove:
      return "taken out of the text";
    case IgnoreRule::ExcludeWith:
      return "phrases with one of them are left out";
  }
  return "";
}

}  // namespace

std::string HeadLineText(const ShownResult& result, const NumberFormat& numbers) {
  const RunSummary& facts = result.Run.Facts;
  std::string text = Shortened(SourceNameOf(facts), kLongestName) + ": ";
  if (facts.Options.SourceKind == TextSource::Folder)
    text += Counted(facts.FilesScanned, "file", "files", numbers) + ", ";
  return text + Words(facts.Words, numbers) + ", " +
         Counted(result.Run.Table.PhraseCount(), "different phrase", "different phrases", numbers) + ", " +
         FormatElapsedCompact(result.Took);
}

std::string RunTip(const ShownResult& result, const std::string& when, const NumberFormat& numbers) {
  const RunSummary& facts = result.Run.Facts;
  const RunRequest& request = result.Request;
  std::string text = facts.InputPath;
  if (facts.Options.SourceKind == TextSource::Clipboard || !facts.Paths.empty()) text = SourceNameOf(facts);
  text += "\n" + PhrasesText(facts.Options) + ".\n" + WordRulesText(request.Rules) + ".\n";
  if (const size_t words = request.Lists.FileWordsToIgnore.size() + request.Lists.TypedWordsToIgnore.size();
      words > 0)
    text += Counted(words, "word to ignore", "words to ignore", numbers) + ": " +
            IgnoreText(facts.Options.IgnoreMode) + ".\n";
  if (!request.Lists.CountOnly.empty())
    text +=
        Counted(request.Lists.CountOnly.size(), "count-only entry", "count-only entries", numbers) + ".\n";
  text += "Counted at " + when + " in " + FormatElapsedLong(result.Took) + ".\n";
  if (!result.KeptIn.empty()) text += "Kept in " + result.KeptIn + ".\n";
  return text + "Memory: " + FormatSize(MemoryOf(result), numbers) + ".";
}

uint64_t MemoryOf(const ShownResult& result) {
  return result.Run.Table.Bytes() + result.Run.KeptText.capacity();
}

}  // namespace korv
