#include "report/writers/tsv_writer.h"

#include <algorithm>

namespace korv {

namespace {

bool Separates(char sign) {
  return sign == '\t' || sign == '\r' || sign == '\n';
}

void AppendText(std::string_view text, TextBuffer& out) {
  for (;;) {
    const auto at = static_cast<size_t>(std::find_if(text.begin(), text.end(), Separates) - text.begin());
    out.Append(text.substr(0, at));
    if (at == text.size()) return;
    out.Append(' ');
    text.remove_prefix(at + (text.substr(at).starts_with("\r\n") ? 2 : 1));
  }
}

}  // namespace

void TsvWriter::Begin(std::span<const Column* const> columns, const ColumnSource&) {
  for (size_t k = 0; k < columns.size(); ++k) {
    if (k > 0) pieces_.Append('\t');
    pieces_.Append(columns[k]->Id);
  }
  pieces_.Append('\n');
}

void TsvRows::Append(const RowCells& cells, TextBuffer& out) {
  for (size_t k = 0; k < cells.OfPhrase.size(); ++k) {
    const Cell& cell = cells.OfPhrase[k];
    if (k > 0) out.Append('\t');
    if (const auto* text = std::get_if<std::string_view>(&cell))
      AppendText(*text, out);
    else if (const auto* whole = std::get_if<int64_t>(&cell))
      out.AppendWhole(*whole);
    else
      out.Append(number_.Of(cell));
  }
  out.Append('\n');
}

bool TsvWriter::Row(const RowCells& cells) {
  rows_.Append(cells, pieces_);
  return pieces_.HandOverWhenLarge();
}

bool TsvWriter::MadeRow(std::string_view row) {
  pieces_.Append(row);
  return pieces_.HandOverWhenLarge();
}

bool TsvWriter::End(bool) {
  return pieces_.HandOverRest();
}

}  // namespace korv
