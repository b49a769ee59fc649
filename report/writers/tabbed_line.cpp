#include "report/writers/text_line.h"

namespace korv {

namespace {

/// The text of a phrase is always followed by a tab. Any other cell is followed by one only if another cell
/// comes behind it.
class Tabs {
 public:
  bool Before() const { return open_; }
  bool Behind(const Column& column) {
    const bool behind = column.Type == ColumnType::Text && column.Value != nullptr;
    open_ = !behind;
    return behind;
  }

 private:
  bool open_ = false;  ///< The last cell has no tab behind it.
};

void AppendHeadings(const std::vector<TextColumn>& columns, Tabs& tabs, std::string& line) {
  for (const TextColumn& column : columns) {
    if (tabs.Before()) line += '\t';
    line += HeadingText(column.Of);
    if (tabs.Behind(column.Of)) line += '\t';
  }
}

void AppendCell(TextColumn& column, const Cell& cell, Tabs& tabs, TextBuffer& out) {
  if (tabs.Before()) out.Append('\t');
  out.Append(column.Text.Of(cell));
  if (tabs.Behind(column.Of)) out.Append('\t');
}

}  // namespace

std::string TabbedLine::Headings(const TextColumns& columns) {
  std::string line;
  Tabs tabs;
  AppendHeadings(columns.OfPhrase, tabs, line);
  if (columns.FilesBeside) AppendHeadings(columns.InFile, tabs, line);
  return line;
}

void TabbedLine::AppendCells(TextColumns& columns, const RowCells& cells, TextBuffer& out) const {
  Tabs tabs;
  for (size_t k = 0; k < columns.OfPhrase.size(); ++k)
    AppendCell(columns.OfPhrase[k], cells.OfPhrase[k], tabs, out);
  if (!columns.FilesBeside) return;
  for (size_t k = 0; k < cells.OfFiles.size(); ++k)
    AppendCell(columns.InFile[k % columns.InFile.size()], cells.OfFiles[k], tabs, out);
}

}  // namespace korv
