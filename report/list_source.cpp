#include "report/list_source.h"

#include <algorithm>

#include "engine/analysis/phrase_order.h"
#include "engine/corpus/corpus.h"
#include "platform/files.h"
#include "report/folder_paths.h"

namespace korv {

uint64_t FilesWithWords(const PhraseTable& table, const RunSummary& facts) {
  if (facts.Counts) return 0;
  if (facts.Options.SourceKind != TextSource::Folder) return 1;
  const Corpus& corpus = table.Corpus();
  uint64_t files = 0;
  for (size_t s = 0; s < corpus.Sources.size(); ++s)
    if (corpus.WordsOfSource(s, facts.Words.Taken) > 0) ++files;
  return files;
}

ListSource::ListSource(const Report& report, std::span<const Column* const> columns, const ListExtent& extent)
    : analysis_(report.Table, report.Parts, report.ComparedBy), view_{report.Table, report.Facts, extent} {
  for (const Column* column : columns) needs_ |= column->Needs;
  if (std::ranges::any_of(columns, [](const Column* column) { return column->ValueInFile != nullptr; }))
    filePaths_ = AbbreviatePaths(report.Table.FilePaths(), ShownPath(report.Facts.InputPath));
  if (std::ranges::any_of(columns, &Column::NeedsSourcePaths))
    for (const CorpusSource& source : report.Table.Corpus().Sources)
      sourcePaths_.push_back(PathToText(source.Path));
  // The chain goes by files then.
  needsRanks_ =
      report.Options.SortByNumberOfFiles && std::ranges::any_of(columns, &Column::NeedsFrequencyRanks);
  view_.FilePaths = filePaths_;
  view_.SourcePaths = sourcePaths_;
  view_.FilesWithWords = FilesWithWords(report.Table, report.Facts);
  view_.Analysis = &analysis_;
  view_.SimpleMathsK = report.SimpleMathsK;
}

bool ListSource::Prepare(Yielder& yielder) {
  if (needsRanks_) {
    frequencyRanks_ = RanksByCount(view_.Table, yielder);
    if (frequencyRanks_.empty()) return false;
    view_.FrequencyRanks = frequencyRanks_;
  }
  return analysis_.Prepare(needs_, yielder);
}

}  // namespace korv
