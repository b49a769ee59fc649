#pragma once

#include <array>
#include <string_view>

#include "report/writers/list_writer.h"
#include "report/writers/number_text.h"
#include "report/writers/pieces.h"

namespace korv {

/// How a table of comma-separated values is written.
struct CsvStyle {
  char Separator = ',';
  char DecimalPoint = '.';
  /// For programs that take a file without a UTF-8 signature for ANSI, and a text for a formula if it begins
  /// like one (CWE-1236): the signature stands in front, and such a text gets an apostrophe before it.
  bool ForSpreadsheets = false;
};

/// The rows of a CsvWriter.
class CsvRows final : public RowText {
 public:
  explicit CsvRows(const CsvStyle& style);

  void Append(const RowCells& cells, TextBuffer& out) override;

 private:
  void AppendNumber(std::string_view number, TextBuffer& out) const;
  void AppendText(std::string_view text, TextBuffer& out) const;

  CsvStyle style_;
  std::array<bool, 256> quoted_{};  ///< By byte: it puts the text that it stands in between quotes.
  NumberText number_;
};

/// Comma-separated values in UTF-8 as RFC 4180 has them: a heading of the columns' Ids, lines ended by CR LF,
/// quotes around what holds a separator, a quote or a line end, and quotes in it doubled. Numbers and
/// undefined values are those of the TsvWriter.
class CsvWriter final : public ListWriter {
 public:
  explicit CsvWriter(ReportSink& sink, const CsvStyle& style = {});

  void Begin(std::span<const Column* const> columns, const ColumnSource& source) override;
  bool Row(const RowCells& cells) override;
  std::unique_ptr<RowText> Rows() const override {
    return pieces_.Large() ? std::make_unique<CsvRows>(style_) : nullptr;
  }
  bool MadeRow(std::string_view row) override;
  bool End(bool stopped) override;

 private:
  CsvStyle style_;
  Pieces pieces_;
  CsvRows rows_;
};

}  // namespace korv
