#include "report/row_maker.h"

#include <utility>

#include "base/yielder.h"
#include "report/shown_phrase.h"
#include "report/writers/report_opening.h"

namespace korv {

RowMaker::RowMaker(const Report& report, std::span<const Column* const> columns, const ColumnSource& source,
                   std::unique_ptr<RowText> text)
    : table_(report.Table), cells_(columns, source), rowText_(std::move(text)) {
  if (Filters(report.Options)) filter_.emplace(report.Options.FilterText, report.Options.FilterModeOfWords);
}

void RowMaker::Make(const ListedRows& rows, size_t begin, size_t end, const Yielder& yielder,
                    MadeRows& made) {
  made.Text.Clear();
  made.Rows.clear();
  for (made.End = begin; made.End < end && made.Text.Size() <= kMostText && !yielder.Stopped(); ++made.End) {
    rows.PrefetchBehind(made.End);
    const PhraseIndex entry = rows.At(made.End);
    if (entry == kNoPhrase) continue;
    phrase_.clear();
    table_.AppendText(entry, phrase_);
    if (filter_ && !filter_->Passes(phrase_)) continue;
    ShowPhrase(table_, phrase_);
    rowText_->Append(cells_.Cells(entry, phrase_), made.Text);
    made.Rows.push_back({made.Text.Size(), table_.Count(entry)});
  }
}

}  // namespace korv
