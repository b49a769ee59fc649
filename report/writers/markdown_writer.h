#pragma once

#include <string>
#include <vector>

#include "report/writers/list_writer.h"
#include "report/writers/number_text.h"
#include "report/writers/pieces.h"
#include "report/writers/table_description.h"

namespace korv {

/// A pipe table of Markdown. Cells are those of the TsvWriter, with a backslash before what has a meaning
/// there. At most kMostRows rows unless all are wished; below them it says how many it leaves out.
class MarkdownWriter final : public ListWriter {
 public:
  static constexpr uint64_t kMostRows = 100;

  MarkdownWriter(ReportSink& sink, const TableDescription& about)
      : pieces_(sink), limit_(about.AllRows ? UINT64_MAX : kMostRows), numbers_(about.Numbers) {}

  void Begin(std::span<const Column* const> columns, const ColumnSource& source) override;
  bool Row(const RowCells& cells) override;
  bool End(bool stopped) override;

 private:
  Pieces pieces_;
  uint64_t limit_;
  NumberFormat numbers_;
  NumberText number_;
  std::string line_;
  uint64_t rows_ = 0;
};

}  // namespace korv
