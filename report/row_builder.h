#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "report/columns/column.h"
#include "report/writers/list_writer.h"

namespace korv {

/// Asks the columns of a list for the cells of one phrase after the other. Allocates nothing per phrase but
/// the counts of its files, where a column needs them.
class RowBuilder {
 public:
  /// Both outlive the builder.
  RowBuilder(std::span<const Column* const> columns, const ColumnSource& source);

  /// The cells of an entry, whose text is `text`. Valid until the next call, and as long as the text.
  const RowCells& Cells(PhraseIndex entry, std::string_view text);

 private:
  uint32_t FileCount(PhraseIndex entry);

  const ColumnSource& source_;
  std::vector<const Column*> ofPhrase_;
  std::vector<const Column*> inFile_;
  bool needsFiles_ = false;
  bool needsFileCount_ = false;
  DocumentCounts files_;
  std::vector<size_t> sources_;
  std::vector<Cell> phraseCells_;
  std::vector<Cell> fileCells_;
  RowCells cells_;
};

}  // namespace korv
