#include "report/list_source.h"

#include <algorithm>
#include <functional>

#include "engine/corpus/corpus.h"
#include "platform/files.h"
#include "report/folder_paths.h"

namespace korv {

namespace {

/// By entry, 0 for those that are not listed. Entries are in alphabetical order, which ties keep.
std::vector<PhraseRank> RanksByFrequency(const PhraseTable& table) {
  std::vector<PhraseIndex> order;
  for (const PhraseIndex i : table.All())
    if (table.Listed(i)) order.push_back(i);
  std::ranges::stable_sort(order, std::greater(), [&](PhraseIndex i) { return table.Count(i); });
  std::vector<PhraseRank> ranks(size_t{table.EntryCount()} + 1, kNoRank);
  PhraseRank rank = kNoRank;
  for (const PhraseIndex i : order) ranks[ValueOf(i)] = ++rank;
  return ranks;
}

}  // namespace

uint64_t FilesWithWords(const PhraseTable& table, const RunSummary& facts) {
  if (facts.Options.SourceKind != TextSource::Folder) return 1;
  const std::vector<CorpusSource>& sources = table.Corpus().Sources;
  uint64_t files = 0;
  for (size_t s = 0; s < sources.size(); ++s) {
    const uint64_t end = s + 1 < sources.size() ? sources[s + 1].WordsBefore : facts.Words.Taken;
    if (end > sources[s].WordsBefore) ++files;
  }
  return files;
}

ListSource::ListSource(const Report& report, std::span<const Column* const> columns, const ListExtent& extent)
    : analysis_(report.Table, report.Parts), view_{report.Table, report.Facts, extent} {
  for (const Column* column : columns) needs_ |= column->Needs;
  if (std::ranges::any_of(columns, [](const Column* column) { return column->ValueInFile != nullptr; }))
    filePaths_ = AbbreviatePaths(report.Table.FilePaths(), ShownPath(report.Facts.InputPath));
  if (std::ranges::any_of(columns, &Column::NeedsSourcePaths))
    for (const CorpusSource& source : report.Table.Corpus().Sources)
      sourcePaths_.push_back(PathToText(source.Path));
  // The chain goes by files then.
  if (report.Options.SortByNumberOfFiles && std::ranges::any_of(columns, &Column::NeedsFrequencyRanks))
    frequencyRanks_ = RanksByFrequency(report.Table);
  view_.FilePaths = filePaths_;
  view_.SourcePaths = sourcePaths_;
  view_.FilesWithWords = FilesWithWords(report.Table, report.Facts);
  view_.FrequencyRanks = frequencyRanks_;
  view_.Analysis = &analysis_;
}

bool ListSource::Prepare(Yielder& yielder) {
  return analysis_.Prepare(needs_, yielder);
}

}  // namespace korv
