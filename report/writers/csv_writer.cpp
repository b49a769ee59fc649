#include "report/writers/csv_writer.h"

#include <algorithm>

namespace korv {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kSignature = "\xEF\xBB\xBF";
/// With these a formula begins, or what a spreadsheet drops before it looks for one.
constexpr std::string_view kFormulaBegins = "=+-@\t\r";

}  // namespace

CsvWriter::CsvWriter(ReportSink& sink, const CsvStyle& style) : style_(style), pieces_(sink) {
  for (const char sign : {style_.Separator, '"', '\r', '\n'})
    quoted_[static_cast<unsigned char>(sign)] = true;
}

void CsvWriter::Begin(std::span<const Column* const> columns, const ColumnSource&) {
  if (style_.ForSpreadsheets) pieces_.Append(kSignature);
  for (size_t k = 0; k < columns.size(); ++k) {
    if (k > 0) pieces_.Append(style_.Separator);
    pieces_.Append(columns[k]->Id);
  }
  pieces_.Append(kLineEnd);
}

bool CsvWriter::Row(const RowCells& cells) {
  for (size_t k = 0; k < cells.OfPhrase.size(); ++k) {
    if (k > 0) pieces_.Append(style_.Separator);
    Append(cells.OfPhrase[k]);
  }
  pieces_.Append(kLineEnd);
  return pieces_.HandOverWhenLarge();
}

bool CsvWriter::End(bool) {
  return pieces_.HandOverRest();
}

void CsvWriter::Append(const Cell& cell) {
  if (const auto* text = std::get_if<std::string_view>(&cell))
    AppendText(*text);
  else if (const auto* whole = std::get_if<int64_t>(&cell))
    pieces_.AppendWhole(*whole);
  else
    AppendNumber(number_.Of(cell));
}

void CsvWriter::AppendNumber(std::string_view number) {
  const size_t point = style_.DecimalPoint == '.' ? number.npos : number.find('.');
  if (point == number.npos) {
    pieces_.Append(number);
    return;
  }
  pieces_.Append(number.substr(0, point));
  pieces_.Append(style_.DecimalPoint);
  pieces_.Append(number.substr(point + 1));
}

void CsvWriter::AppendText(std::string_view text) {
  const bool guarded =
      style_.ForSpreadsheets && !text.empty() && kFormulaBegins.find(text.front()) != kFormulaBegins.npos;
  const bool quoted = std::any_of(text.begin(), text.end(),
                                  [this](char sign) { return quoted_[static_cast<unsigned char>(sign)]; });
  if (!quoted) {
    if (guarded) pieces_.Append('\'');
    pieces_.Append(text);
    return;
  }
  pieces_.Append('"');
  if (guarded) pieces_.Append('\'');
  for (size_t quote; (quote = text.find('"')) != text.npos; text.remove_prefix(quote + 1)) {
    pieces_.Append(text.substr(0, quote + 1));
    pieces_.Append('"');
  }
  pieces_.Append(text);
  pieces_.Append('"');
}

}  // namespace korv
