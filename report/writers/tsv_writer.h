#pragma once

#include "report/writers/list_writer.h"
#include "report/writers/number_text.h"
#include "report/writers/pieces.h"

namespace korv {

/// The rows of a TsvWriter.
class TsvRows final : public RowText {
 public:
  void Append(const RowCells& cells, TextBuffer& out) override;

 private:
  NumberText number_;
};

/// Tab-separated values in UTF-8: a heading of the columns' Ids, lines ended by LF, no quotes. A tab or line
/// end within a text becomes a blank. Whole numbers stand plain, real ones with nine digits in the C
/// locale's way, and a value that is not defined is an empty cell. Columns with a value per file are not for
/// tables.
class TsvWriter final : public ListWriter {
 public:
  explicit TsvWriter(ReportSink& sink) : pieces_(sink) {}

  void Begin(std::span<const Column* const> columns, const ColumnSource& source) override;
  bool Row(const RowCells& cells) override;
  std::unique_ptr<RowText> Rows() const override {
    return pieces_.Large() ? std::make_unique<TsvRows>() : nullptr;
  }
  bool MadeRow(std::string_view row) override;
  bool End(bool stopped) override;

 private:
  Pieces pieces_;
  TsvRows rows_;
};

}  // namespace korv
