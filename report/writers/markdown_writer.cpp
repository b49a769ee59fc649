#include "report/writers/markdown_writer.h"

#include "report/writers/table_facts.h"

namespace korv {

namespace {

constexpr std::string_view kSpecial = "|\\`*<[";

void AppendEscaped(std::string_view text, std::string& line) {
  for (const char c : text) {
    if (kSpecial.find(c) != kSpecial.npos) line += '\\';
    line += c == '\r' || c == '\n' || c == '\t' ? ' ' : c;
  }
}

}  // namespace

void MarkdownWriter::Begin(std::span<const Column* const> columns, const ColumnSource&) {
  std::string rule = "|";
  line_ = "|";
  for (const Column* column : columns) {
    line_ += ' ';
    AppendEscaped(HeadingText(*column), line_);
    line_ += " |";
    rule += column->Type == ColumnType::Text ? " --- |" : " ---: |";
  }
  pieces_.Append(line_ + '\n' + rule + '\n');
}

bool MarkdownWriter::Row(const RowCells& cells) {
  if (++rows_ > limit_) return true;
  line_ = "|";
  for (const Cell& cell : cells.OfPhrase) {
    line_ += ' ';
    if (const auto* text = std::get_if<std::string_view>(&cell))
      AppendEscaped(*text, line_);
    else
      line_ += number_.Of(cell);
    line_ += " |";
  }
  line_ += '\n';
  pieces_.Append(line_);
  return pieces_.HandOverWhenLarge();
}

bool MarkdownWriter::End(bool stopped) {
  for (const std::string& note : RowNotes(rows_, limit_, stopped, numbers_))
    pieces_.Append('\n' + note + '\n');
  return pieces_.HandOverRest();
}

}  // namespace korv
