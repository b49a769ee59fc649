#include "report/writers/text_writer.h"

#include <algorithm>

#include "base/translation.h"
#include "engine/text/unicode.h"
#include "report/filter.h"
#include "report/writers/report_opening.h"

namespace korv {

namespace {

constexpr std::string_view kIndentOfFiles = "    ";

/// As wide as the widest cell of the list, but not less than the heading.
int WidthOf(const Column& column, const ColumnSource& source, CellText& text) {
  if (column.Width > 0) return column.Width;
  int widest = 0;
  if (column.Type == ColumnType::Text) {
    widest = source.Extent.LongestCharacters;
  } else if (column.Greatest) {
    text.Of(column.Greatest(source));
    widest = text.Width();
  }
  return std::max(widest, static_cast<int>(CharacterCount(HeadingText(column))));
}

}  // namespace

TextWriter::TextWriter(const Report& report, const ReportForm& form, ReportSink& sink)
    : report_(report), form_(form), format_(FormatOf(report.Options.DisplayFormat)), pieces_(sink) {
  columns_.FilesBeside = !format_.LinePerFile;
  if (form.LineLayout == Layout::Tabs)
    line_ = std::make_unique<TabbedLine>();
  else
    line_ = std::make_unique<PaddedLine>(format_.FlushLeft);
}

void TextWriter::Begin(std::span<const Column* const> columns, const ColumnSource& source) {
  for (const Column* column : columns) {
    CellText text(*column, report_.Numbers);
    const int width = WidthOf(*column, source, text);
    (column->Value ? columns_.OfPhrase : columns_.InFile).push_back({*column, std::move(text), width});
  }
  pieces_.Append(OpeningText(report_, form_, source.Extent));
  AppendHeading(source.Extent);
  rows_.emplace(MakeRows());
}

TextRows TextWriter::MakeRows() const {
  return {*line_, form_.LineEnd, format_.LinePerFile, columns_};
}

void TextWriter::AppendHeading(const ListExtent& extent) {
  if (format_.OneLine && form_.LineLayout == Layout::Tabs) return;
  std::string heading = line_->Headings(columns_);
  if (format_.TellsLongest) {
    heading.resize(heading.find_last_not_of(" \t") + 1);
    heading += " " + Fill(Tr("[longest has %1 characters]"), {std::to_string(extent.LongestCharacters)});
  }
  pieces_.Append(heading);
  pieces_.Append(form_.LineEnd);
}

bool TextWriter::Row(const RowCells& cells) {
  if (format_.OneLine) {
    if (anyRow_) pieces_.Append(", ");
    pieces_.Append(columns_.OfPhrase.front().Text.Of(cells.OfPhrase.front()));
  } else {
    rows_->Append(cells, pieces_);
  }
  anyRow_ = true;
  pieces_.PhraseEnds();
  return pieces_.HandOverWhenLarge();
}

std::unique_ptr<RowText> TextWriter::Rows() const {
  if (format_.OneLine || !pieces_.Large()) return nullptr;
  return std::make_unique<TextRows>(MakeRows());
}

bool TextWriter::MadeRow(std::string_view row) {
  pieces_.Append(row);
  anyRow_ = true;
  pieces_.PhraseEnds();
  return pieces_.HandOverWhenLarge();
}

void TextRows::Append(const RowCells& cells, TextBuffer& out) {
  line_.AppendCells(columns_, cells, out);
  out.Append(lineEnd_);
  if (linePerFile_) AppendFileLines(cells, out);
}

// The same in both layouts.
void TextRows::AppendFileLines(const RowCells& cells, TextBuffer& out) {
  for (auto rest = cells.OfFiles; !rest.empty(); rest = rest.subspan(columns_.InFile.size())) {
    out.Append(kIndentOfFiles);
    for (size_t k = 0; k < columns_.InFile.size(); ++k) {
      if (k > 0) out.Append(' ');
      TextColumn& column = columns_.InFile[k];
      const std::string_view text = column.Text.Of(rest[k]);
      if (column.Of.Align == Alignment::Right) out.AppendBlanks(column.Width - column.Text.Width());
      out.Append(text);
    }
    out.Append(lineEnd_);
  }
}

bool TextWriter::End(bool stopped) {
  if (format_.OneLine && anyRow_) pieces_.Append(form_.LineEnd);
  // What other choices leave nothing of needs no words.
  if (!stopped && !anyRow_ && Filters(report_.Options)) AppendNoMatch();
  return pieces_.HandOverRest();
}

void TextWriter::AppendNoMatch() {
  if (!form_.File) pieces_.Append(form_.LineEnd);
  const auto place = form_.File ? NoticePlace::File : NoticePlace::TextBox;
  const bool alphabetical = report_.Options.WordOrder == kAlphabetical;
  pieces_.Append(NoMatchText(report_.Options.FilterModeOfWords, alphabetical, place));
  if (form_.File) pieces_.Append(form_.LineEnd);
}

}  // namespace korv
