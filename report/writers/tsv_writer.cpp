#include "report/writers/tsv_writer.h"

namespace korv {

namespace {

constexpr std::string_view kSeparators = "\t\r\n";

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
  else
    pieces_.Append(number_.Of(cell));
}

void TsvWriter::AppendText(std::string_view text) {
  for (size_t at; (at = text.find_first_of(kSeparators)) != text.npos;) {
    pieces_.Append(text.substr(0, at));
    pieces_.Append(' ');
    text.remove_prefix(at + (text.substr(at).starts_with("\r\n") ? 2 : 1));
  }
  pieces_.Append(text);
}

}  // namespace korv
