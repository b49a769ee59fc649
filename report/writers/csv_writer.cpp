#include "report/writers/csv_writer.h"

#include <algorithm>

namespace korv {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kSignature = "\xEF\xBB\xBF";
/// With these a formula begins, or what a spreadsheet drops before it looks for one.
constexpr std::string_view kFormulaBegins = "=+-@\t\r";

}  // namespace

CsvRows::CsvRows(const CsvStyle& style) : style_(style) {
  for (const char sign : {style_.Separator, '"', '\r', '\n'})
    quoted_[static_cast<unsigned char>(sign)] = true;
}

CsvWriter::CsvWriter(ReportSink& sink, const CsvStyle& style) : style_(style), pieces_(sink), rows_(style) {}

void CsvWriter::Begin(std::span<const Column* const> columns, const ColumnSource&) {
  if (style_.ForSpreadsheets) pieces_.Append(kSignature);
  for (size_t k = 0; k < columns.size(); ++k) {
    if (k > 0) pieces_.Append(style_.Separator);
    pieces_.Append(columns[k]->Id);
  }
  pieces_.Append(kLineEnd);
}

bool CsvWriter::Row(const RowCells& cells) {
  rows_.Append(cells, pieces_);
  return pieces_.HandOverWhenLarge();
}

bool CsvWriter::MadeRow(std::string_view row) {
  pieces_.Append(row);
  return pieces_.HandOverWhenLarge();
}

bool CsvWriter::End(bool) {
  return pieces_.HandOverRest();
}

void CsvRows::Append(const RowCells& cells, TextBuffer& out) {
  for (size_t k = 0; k < cells.OfPhrase.size(); ++k) {
    const Cell& cell = cells.OfPhrase[k];
    if (k > 0) out.Append(style_.Separator);
    if (const auto* text = std::get_if<std::string_view>(&cell))
      AppendText(*text, out);
    else if (const auto* whole = std::get_if<int64_t>(&cell))
      out.AppendWhole(*whole);
    else
      AppendNumber(number_.Of(cell), out);
  }
  out.Append(kLineEnd);
}

void CsvRows::AppendNumber(std::string_view number, TextBuffer& out) const {
  const size_t point = style_.DecimalPoint == '.' ? number.npos : number.find('.');
  if (point == number.npos) {
    out.Append(number);
    return;
  }
  out.Append(number.substr(0, point));
  out.Append(style_.DecimalPoint);
  out.Append(number.substr(point + 1));
}

void CsvRows::AppendText(std::string_view text, TextBuffer& out) const {
  const bool guarded =
      style_.ForSpreadsheets && !text.empty() && kFormulaBegins.find(text.front()) != kFormulaBegins.npos;
  const bool quoted = std::any_of(text.begin(), text.end(),
                                  [this](char sign) { return quoted_[static_cast<unsigned char>(sign)]; });
  if (!quoted) {
    if (guarded) out.Append('\'');
    out.Append(text);
    return;
  }
  out.Append('"');
  if (guarded) out.Append('\'');
  for (size_t quote; (quote = text.find('"')) != text.npos; text.remove_prefix(quote + 1)) {
    out.Append(text.substr(0, quote + 1));
    out.Append('"');
  }
  out.Append(text);
  out.Append('"');
}

}  // namespace korv
