#include "desktop/results/table/table_source.h"

#include <array>

#include "engine/analysis/phrase_order.h"
#include "engine/corpus/corpus.h"
#include "platform/files.h"
#include "report/list_source.h"
#include "report/row_builder.h"

namespace korv {

std::shared_ptr<const TableSource> TableSource::Of(std::shared_ptr<const CountedRun> run, Yielder& yielder) {
  const std::shared_ptr<TableSource> source(new TableSource(std::move(run)));
  const PhraseTable& table = source->Table();
  for (const CorpusSource& text : table.Corpus().Sources)
    source->sourcePaths_.push_back(PathToText(text.Path));
  source->filesWithWords_ = FilesWithWords(table, source->run_->Facts);
  // The chain may be threaded anew while the table is looked at.
  source->ranks_ = RanksByCount(table, yielder);
  return yielder.Stopped() ? nullptr : source;
}

ColumnSource TableSource::View() const {
  ColumnSource view{run_->Table, run_->Facts};
  view.SourcePaths = sourcePaths_;
  view.FilesWithWords = filesWithWords_;
  view.FrequencyRanks = ranks_;
  return view;
}

Cell TableSource::ValueOf(const Column& column, PhraseIndex entry, std::string& text) const {
  text.clear();
  if (column.Type == ColumnType::Text) Table().AppendText(entry, text);
  const ColumnSource view = View();
  return RowBuilder(std::array{&column}, view).Cells(entry, text).OfPhrase.front();
}

}  // namespace korv
