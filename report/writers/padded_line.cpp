#include <algorithm>

#include "engine/text/unicode.h"
#include "report/writers/text_line.h"

namespace korv {

namespace {

constexpr std::string_view kGap = "  ";
// Between two values that share a cell, and between their headings.
constexpr std::string_view kSharedGap = "    ";
constexpr std::string_view kSharedHeadingGap = "   ";

void AppendHeading(const TextColumn& column, bool first, bool last, std::string& line) {
  const std::string_view heading = HeadingText(column.Of);
  if (!first) line += column.Of.SharesCell ? kSharedHeadingGap : kGap;
  // A width that two columns share says nothing about a heading.
  const int width = column.Of.SharesCell ? 0 : column.Width;
  const int missing = width - static_cast<int>(CharacterCount(heading));
  const std::string blanks(static_cast<size_t>(std::max(missing, 0)), ' ');
  if (column.Of.Align == Alignment::Right) line += blanks;
  line += heading;
  if (column.Of.Align == Alignment::Left && !last) line += blanks;
}

void AppendText(std::string_view text, int width, bool last, TextBuffer& out) {
  out.Append(text);
  if (!last) out.AppendBlanks(width - static_cast<int>(CharacterCount(text)));
}

void AppendNumber(TextColumn& column, const Cell& cell, TextBuffer& out) {
  const std::string_view number = column.Text.Of(cell);
  out.AppendBlanks(column.Width - column.Text.Width());
  out.Append(number);
}

/// Two numbers, aligned as if they were one.
void AppendShared(TextColumn& left, const Cell& leftCell, TextColumn& right, const Cell& rightCell,
                  TextBuffer& out) {
  const std::string_view leftText = left.Text.Of(leftCell), rightText = right.Text.Of(rightCell);
  out.AppendBlanks(right.Width - left.Text.Width() - static_cast<int>(kSharedGap.size()) -
                   right.Text.Width());
  out.Append(leftText);
  out.Append(kSharedGap);
  out.Append(rightText);
}

}  // namespace

std::string PaddedLine::Headings(const TextColumns& columns) {
  std::string line = " ";
  const size_t ofPhrase = columns.OfPhrase.size();
  const size_t all = ofPhrase + (columns.FilesBeside ? columns.InFile.size() : 0);
  for (size_t k = 0; k < all; ++k)
    AppendHeading(k < ofPhrase ? columns.OfPhrase[k] : columns.InFile[k - ofPhrase], k == 0, k + 1 == all,
                  line);
  return line;
}

void PaddedLine::AppendCells(TextColumns& columns, const RowCells& cells, TextBuffer& out) const {
  if (!flushLeft_) out.Append(' ');
  const bool filesFollow = columns.FilesBeside && !cells.OfFiles.empty();
  const size_t count = columns.OfPhrase.size();
  for (size_t k = 0; k < count; ++k) {
    if (k > 0) out.Append(kGap);
    TextColumn& column = columns.OfPhrase[k];
    const Cell& cell = cells.OfPhrase[k];
    if (const auto* text = std::get_if<std::string_view>(&cell)) {
      AppendText(*text, column.Width, k + 1 == count && !filesFollow, out);
    } else if (k + 1 < count && columns.OfPhrase[k + 1].Of.SharesCell) {
      ++k;
      AppendShared(column, cell, columns.OfPhrase[k], cells.OfPhrase[k], out);
    } else {
      AppendNumber(column, cell, out);
    }
  }
  if (!filesFollow) return;
  for (size_t k = 0; k < cells.OfFiles.size(); ++k) {
    out.Append(kGap);
    out.Append(columns.InFile[k % columns.InFile.size()].Text.Of(cells.OfFiles[k]));
  }
}

}  // namespace korv
