#include "tests/reference/naive_columns.h"

#include <algorithm>

#include "tests/reference/naive_text.h"

namespace korv::reference {
namespace {

constexpr size_t kDigitsOfFileNumber = 5;

int64_t RunningWords(const CountingRun& run) {
  int64_t words = run.WordsTaken();
  for (const auto& [reason, dropped] : run.WordsDropped()) words += dropped;
  return words;
}

}  // namespace

std::vector<ColumnValues> ValuesOfColumns(const CountingRun& run, bool folder) {
  const Table& table = run.Phrases();
  std::vector<const Phrase*> listed;
  for (int32_t i = 1; i <= table.PhraseCount; ++i)
    if (table[i].Listed) listed.push_back(&table[i]);

  const int64_t words = RunningWords(run);
  int64_t filesWithWords = 0;
  for (const int64_t taken : run.WordsOfSources())
    if (taken > 0) ++filesWithWords;
  if (!folder) filesWithWords = 1;
  std::vector<ColumnValues> values;
  for (const Phrase* phrase : listed) {
    ColumnValues v;
    v.Phrase = phrase->Text;
    v.Frequency = phrase->Count;
    // Those that occur more often stand before it, and so do those as frequent that the alphabet puts first.
    v.Rank = 1;
    for (const Phrase* other : listed)
      if (other->Count > phrase->Count || (other->Count == phrase->Count && other < phrase)) ++v.Rank;
    if (words > 0) {
      v.PerMillion = 1e6 * static_cast<double>(phrase->Count) / static_cast<double>(words);
      v.Percent = 100.0 * static_cast<double>(phrase->Count) / static_cast<double>(words);
    }
    v.Words = std::count(phrase->Text.begin(), phrase->Text.end(), ' ') + 1;
    v.Characters = CharacterCount(phrase->Text);
    v.Files = folder ? static_cast<int64_t>(phrase->FileNumbers.size() / kDigitsOfFileNumber) : 1;
    if (filesWithWords > 0)
      v.FilesPercent = 100.0 * static_cast<double>(v.Files) / static_cast<double>(filesWithWords);
    if (folder) {
      const int first = std::stoi(phrase->FileNumbers.substr(0, kDigitsOfFileNumber));
      v.FirstFile = table.FilePaths[static_cast<size_t>(first)];
    }
    values.push_back(std::move(v));
  }
  return values;
}

}  // namespace korv::reference
