#include "desktop/results/table/table_source.h"

#include <array>

#include "desktop/results/table/first_column.h"
#include "engine/analysis/phrase_order.h"
#include "report/list_source.h"
#include "report/row_builder.h"
#include "report/shown_phrase.h"

namespace korv {

std::shared_ptr<const TableSource> TableSource::Of(std::shared_ptr<const CountedRun> run, Yielder& yielder) {
  auto base = std::make_shared<Base>();
  base->Run = std::move(run);
  const PhraseTable& table = base->Run->Table;
  base->FilesWithWords = korv::FilesWithWords(table, base->Run->Facts);
  // The chain may be threaded anew while the table is looked at.
  base->Ranks = RanksByCount(table, yielder);
  if (yielder.Stopped()) return nullptr;
  return std::shared_ptr<const TableSource>(new TableSource(std::move(base)));
}

std::shared_ptr<const TableSource> TableSource::With(const AnalysisNeeds& needs, const ValueChoice& choice,
                                                     Yielder& yielder) const {
  // The window may be reading the analysis that is there. The copy shares what was prepared.
  auto analysis = analysis_ ? std::make_shared<PhraseAnalysis>(*analysis_)
                            : std::make_shared<PhraseAnalysis>(Table(), choice.Parts);
  analysis->Divide(choice.Parts);
  analysis->CompareBy(choice.ComparedBy);
  AnalysisNeeds all = prepared_;
  all |= needs;
  if (!analysis->Prepare(all, yielder)) return nullptr;
  const std::shared_ptr<TableSource> source(new TableSource(base_));
  source->analysis_ = std::move(analysis);
  source->prepared_ = all;
  source->choice_ = choice;
  return source;
}

bool TableSource::Has(const AnalysisNeeds& needs) const {
  AnalysisNeeds all = prepared_;
  all |= needs;
  return all == prepared_;
}

ColumnSource TableSource::View() const {
  ColumnSource view{base_->Run->Table, base_->Run->Facts};
  view.FilesWithWords = base_->FilesWithWords;
  view.FrequencyRanks = base_->Ranks;
  view.Analysis = analysis_.get();
  view.SimpleMathsK = choice_.SimpleMathsK;
  return view;
}

Cell TableSource::ValueOf(const Column& column, PhraseIndex entry, std::string& text) const {
  text.clear();
  if (&column == &FirstColumn()) {
    text = FirstPlace(Run(), entry);
    return text;
  }
  if (column.Type == ColumnType::Text) {
    Table().AppendText(entry, text);
    ShowPhrase(Table(), text);
  }
  const ColumnSource view = View();
  return RowBuilder(std::array{&column}, view).Cells(entry, text).OfPhrase.front();
}

}  // namespace korv
