// Any bytes as a file of counts: refused with a line of it, or a table whose phrases add up.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "engine/counting/count_phrases.h"
#include "sources/read/read_counts.h"
#include "tests/fakes/fake_files.h"

namespace {

using namespace korv;

void Require(bool holds) {
  if (!holds) std::abort();
}

void RequireWhole(PhraseTable& table, const RunOptions& options) {
  NoYielder yielder;
  Require(SortPhrases(table, yielder));
  ListByFrequency(table, 1);
  uint64_t occurrences = 0;
  std::string before;
  for (const PhraseIndex i : table.All()) {
    Require(table.Words(i) >= options.MinWords && table.Words(i) <= options.MaxWords);
    Require(table.Characters(i) <= kMostPhraseCharacters);
    Require(table.Count(i) >= 1 && table.Count(i) <= kMostFrequency);
    Require(i == PhraseIndex{1} || before <= table.Key(i));
    before = table.Key(i);
    occurrences += table.Count(i);
  }
  Require(table.Occurrences() == occurrences && table.PhraseCount() == table.EntryCount());
  Require(ExcludeRedundantSubphrases(table, yielder));
  Require(SetUpFrequencyChain(table, ChainOrder::ByCount, yielder));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kMostBytes = 1 << 16;
  if (size == 0 || size > kMostBytes) return 0;
  RunOptions options;
  options.MinWords = 2;
  options.MaxWords = 2 + (data[0] & 3);
  options.IgnoreMode = static_cast<IgnoreRule>(1 + (data[0] >> 2 & 3));
  WordFilterSpec entries;
  if ((data[0] & 16) != 0) entries.FileWordsToIgnore = {"the", "of"};
  if ((data[0] & 32) != 0) entries.CountOnly = {"cat", "the dog"};
  const WordFilters lists(entries);
  const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  FakeFiles files;
  files.Add("/c", bytes);
  if ((data[0] & 64) != 0) files.ReadInPiecesOf(5);
  auto file = files.OpenForReading("/c");
  NoYielder yielder;
  PhraseTable table;
  PhraseSums sums(options, lists, table);
  CountsTally tally;
  const auto error = ReadCounts(**file, sums, yielder, tally, [](uint64_t) {});
  if (error) {
    const auto lines = static_cast<uint64_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1;
    Require(error->Line >= 1 && error->Line <= lines);
    return 0;
  }
  Require(tally.OtherLengths <= tally.Counts);
  Require(sums.Finish(yielder));
  RequireWhole(table, options);
  return 0;
}
