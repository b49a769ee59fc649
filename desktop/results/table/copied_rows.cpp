#include "desktop/results/table/copied_rows.h"

#include <algorithm>
#include <string>

#include "desktop/results/table/shown_cell.h"
#include "desktop/toolkit/text.h"

namespace korv {

namespace {

/// Writes the cells of one row after the other in both manners.
class RowsWriter {
 public:
  explicit RowsWriter(CopiedRows& out) : out_(out) { out_.Html = QStringLiteral("<table>\n"); }

  void Add(const QString& cell, const char* tag, bool right) {
    if (!first_) out_.Text += u'\t';
    first_ = false;
    QString plain = cell;
    plain.replace(QLatin1String("\r\n"), QLatin1String(" "));
    for (const char16_t sign : {u'\t', u'\r', u'\n'}) plain.replace(sign, u' ');
    out_.Text += plain;
    out_.Html += u'<' + QLatin1String(tag) + QLatin1String(right ? " align=\"right\">" : ">") +
                 cell.toHtmlEscaped() + QLatin1String("</") + QLatin1String(tag) + u'>';
  }
  void BeginRow() {
    first_ = true;
    out_.Html += QLatin1String("<tr>");
  }
  void EndRow() {
    out_.Text += u'\n';
    out_.Html += QLatin1String("</tr>\n");
  }
  void End() { out_.Html += QLatin1String("</table>\n"); }

 private:
  CopiedRows& out_;
  bool first_ = true;
};

}  // namespace

uint64_t CountRows(std::span<const RowRange> ranges) {
  uint64_t rows = 0;
  for (const RowRange& range : ranges) rows += static_cast<uint64_t>(range.Last - range.First + 1);
  return rows;
}

std::vector<RowRange> FirstRowsOf(std::span<const RowRange> ranges, uint64_t most) {
  std::vector<RowRange> first;
  for (const RowRange& range : ranges) {
    if (most == 0) break;
    const auto rows = std::min(most, static_cast<uint64_t>(range.Last - range.First + 1));
    first.push_back({range.First, range.First + static_cast<int>(rows) - 1});
    most -= rows;
  }
  return first;
}

CopiedRows CopyRows(const TableSource& source, const CopyRequest& request, const NumberFormat& numbers,
                    Yielder& yielder) {
  CopiedRows copied;
  RowsWriter writer(copied);
  if (request.Heading) {
    writer.BeginRow();
    for (const Column* column : request.Columns) writer.Add(ToQt(HeadingText(*column)), "th", false);
    writer.EndRow();
  }
  std::string text;
  for (const RowRange& range : request.Ranges) {
    for (int row = range.First; row <= range.Last && !yielder.Stopped(); ++row) {
      const PhraseIndex entry = request.Rows.EntryAt(static_cast<uint32_t>(row));
      writer.BeginRow();
      for (const Column* column : request.Columns)
        writer.Add(CopiedCell(source.ValueOf(*column, entry, text), numbers), "td",
                   column->Align == Alignment::Right);
      writer.EndRow();
    }
  }
  writer.End();
  return copied;
}

}  // namespace korv
