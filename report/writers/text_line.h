#pragma once

#include <string>
#include <vector>

#include "report/writers/cell_text.h"
#include "report/writers/list_writer.h"
#include "report/writers/pieces.h"

namespace korv {

/// A column of a text report with its cells as text.
struct TextColumn {
  const Column& Of;
  CellText Text;
  int Width;  ///< Of padded cells, in characters.
};

/// The columns of a text report.
struct TextColumns {
  std::vector<TextColumn> OfPhrase;
  std::vector<TextColumn> InFile;  ///< Repeated for each file of a phrase.
  bool FilesBeside = true;         ///< On the line of the phrase, behind its cells.
};

/// How the cells of a line stand beside each other. Line ends are the caller's.
class TextLine {
 public:
  virtual ~TextLine() = default;
  /// The headings of the columns on this line.
  virtual std::string Headings(const TextColumns& columns) = 0;
  /// The cells of a phrase, and those of its files where they stand beside them.
  virtual void AppendCells(TextColumns& columns, const RowCells& cells, TextBuffer& out) const = 0;
};

/// Padded columns with two blanks between them, for reading. Phrases begin with a blank unless `flushLeft`.
class PaddedLine final : public TextLine {
 public:
  explicit PaddedLine(bool flushLeft) : flushLeft_(flushLeft) {}
  std::string Headings(const TextColumns& columns) override;
  void AppendCells(TextColumns& columns, const RowCells& cells, TextBuffer& out) const override;

 private:
  bool flushLeft_;
};

/// One tab between cells and one behind every text of a phrase, even where it is the last cell; for other
/// programs.
class TabbedLine final : public TextLine {
 public:
  std::string Headings(const TextColumns& columns) override;
  void AppendCells(TextColumns& columns, const RowCells& cells, TextBuffer& out) const override;
};

}  // namespace korv
