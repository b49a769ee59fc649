#pragma once

#include <string>
#include <vector>

#include "report/writers/list_writer.h"
#include "report/writers/number_text.h"
#include "report/writers/pieces.h"
#include "report/writers/table_description.h"

namespace korv {

/// A page for reading that needs no other file: how the list came about, the phrases as a table whose cells
/// are those of the TsvWriter, and what the columns mean. It has at most kMostRows rows unless all are
/// wished, and says how many it leaves out. `about` is copied.
class HtmlWriter final : public ListWriter {
 public:
  static constexpr uint64_t kMostRows = 10000;

  HtmlWriter(ReportSink& sink, TableDescription about)
      : pieces_(sink), limit_(about.AllRows ? kNoLimit : kMostRows), about_(std::move(about)) {}

  void Begin(std::span<const Column* const> columns, const ColumnSource& source) override;
  bool Row(const RowCells& cells) override;
  bool End(bool stopped) override;

 private:
  static constexpr uint64_t kNoLimit = UINT64_MAX;

  Pieces pieces_;
  uint64_t limit_;
  TableDescription about_;
  std::vector<const Column*> columns_;
  NumberText number_;
  std::string html_;
  uint64_t rows_ = 0;
};

}  // namespace korv
