#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "report/filter.h"
#include "report/listed_rows.h"
#include "report/report.h"
#include "report/row_builder.h"
#include "report/writers/list_writer.h"
#include "report/writers/pieces.h"

namespace korv {

/// Rows that stand one behind the other in a list, as text.
struct MadeRows {
  struct Row {
    size_t End;  ///< Of its text.
    uint32_t Count;
  };

  TextBuffer Text;
  std::vector<Row> Rows;
  size_t End = 0;  ///< Of the range that they come from.
};

/// Makes the text of ranges of rows; a thread has one of its own.
class RowMaker {
 public:
  /// In bytes. A row that names thousands of files has a hundred thousand.
  static constexpr size_t kMostText = size_t{1} << 20;

  /// All outlive the object.
  RowMaker(const Report& report, std::span<const Column* const> columns, const ColumnSource& source,
           std::unique_ptr<RowText> text);

  /// Of the rows [begin, end) those that pass the report's filter, in place of what `made` holds. The range
  /// ends earlier where its text has become longer than kMostText, and after a stop.
  void Make(const ListedRows& rows, size_t begin, size_t end, const Yielder& yielder, MadeRows& made);

 private:
  const PhraseTable& table_;
  RowBuilder cells_;
  std::unique_ptr<RowText> rowText_;
  std::optional<PhraseFilter> filter_;
  std::string phrase_;
};

}  // namespace korv
