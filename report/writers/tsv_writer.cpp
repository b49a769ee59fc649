#include "report/writers/tsv_writer.h"

#include <algorithm>

namespace korv {

namespace {

bool Separates(char sign) {
  return sign == '\t' || sign == '\r' || sign == '\n';
}

}  // namespace

void TsvWriter::Begin(std::span<const Column* const> columns, const ColumnSource&) {
  for (size_t k = 0; k < columns.size(); ++k) {
    if (k > 0) pieces_.Append('\t');
    pieces_.Append(columns[k]->Id);
  }
  pieces_.Append('\n');
}

bool TsvWriter::Row(const RowCells& cells) {
  for (size_t k = 0; k < cells.OfPhrase.size(); ++k) {
    if (k > 0) pieces_.Append('\t');
    Append(cells.OfPhrase[k]);
  }
  pieces_.Append('\n');
  return pieces_.HandOverWhenLarge();
}

bool TsvWriter::End(bool) {
  return pieces_.HandOverRest();
}

void TsvWriter::Append(const Cell& cell) {
  if (const auto* text = std::get_if<std::string_view>(&cell))
    AppendText(*text);
  else if (const auto* whole = std::get_if<int64_t>(&cell))
    pieces_.AppendWhole(*whole);
  else
    pieces_.Append(number_.Of(cell));
}

void TsvWriter::AppendText(std::string_view text) {
  for (;;) {
    const auto at = static_cast<size_t>(std::find_if(text.begin(), text.end(), Separates) - text.begin());
    pieces_.Append(text.substr(0, at));
    if (at == text.size()) return;
    pieces_.Append(' ');
    text.remove_prefix(at + (text.substr(at).starts_with("\r\n") ? 2 : 1));
  }
}

}  // namespace korv
