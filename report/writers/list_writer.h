#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "platform/files.h"
#include "report/columns/column.h"

namespace korv {

/// The cells of one phrase, valid during the call that they are given to.
struct RowCells {
  /// One for each column with a value per phrase, in their order.
  std::span<const Cell> OfPhrase;
  /// File by file in reading order, one for each column with a value per file.
  std::span<const Cell> OfFiles;
};

class TextBuffer;

/// Makes the text of rows, each the same whatever comes before it. A thread uses one of its own.
class RowText {
 public:
  virtual ~RowText() = default;
  virtual void Append(const RowCells& cells, TextBuffer& out) = 0;
};

/// Puts a list into one form: lines for reading, a table for other programs. Knows nothing of phrases but
/// their cells, and nothing of files but what it was made with.
///
/// Begin() once, Row() or MadeRow() for every phrase, End() once unless a Row() was refused.
class ListWriter {
 public:
  virtual ~ListWriter() = default;
  /// Columns and source outlive the writing.
  virtual void Begin(std::span<const Column* const> columns, const ColumnSource& source) = 0;
  /// False when the destination takes no more.
  virtual bool Row(const RowCells& cells) = 0;
  /// After Begin(): makes rows for MadeRow(), as many at a time as there are threads with such an object.
  /// Null where rows must be given to Row(), as where the sink takes small pieces and shows how the list
  /// grows. The writer outlives it.
  virtual std::unique_ptr<RowText> Rows() const { return nullptr; }
  /// Row() for one that an object of Rows() has made.
  virtual bool MadeRow(std::string_view /*row*/) { return false; }
  /// `stopped`: there would have been more rows. False when the destination took no more.
  virtual bool End(bool stopped) = 0;
  /// Why Row() or End() refused, where that is no fault of the destination.
  virtual std::optional<FileError> Fault() const { return std::nullopt; }
};

}  // namespace korv
