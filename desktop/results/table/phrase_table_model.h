#pragma once

#include <QAbstractTableModel>
#include <memory>
#include <vector>

#include "desktop/desktop.h"
#include "desktop/results/table/heavy_cells.h"
#include "desktop/results/table/only_side.h"
#include "desktop/results/table/table_source.h"
#include "engine/analysis/phrase_list.h"
#include "report/columns/column.h"

namespace korv {

/// All rows of a phrase list at once, made as they are looked at: a row leads to an entry of the run, and the
/// columns give its cells. Holds no text and nothing per row beside the list.
class PhraseTableModel final : public QAbstractTableModel {
 public:
  /// `desktop` outlives this.
  PhraseTableModel(const Desktop& desktop, QObject* parent);

  /// The columns of the table, by section. Constants.
  const std::vector<const Column*>& Columns() const { return columns_; }
  /// The section of a column; -1 where there is none.
  int SectionOf(std::string_view id) const;

  /// Shows these rows of a run instead of what it showed; a null source for nothing.
  void Show(std::shared_ptr<const TableSource> source, PhraseList rows);
  /// The same rows of the same run, of which more values are there.
  void ShowValues(std::shared_ptr<const TableSource> source);
  /// Whether no value is being found.
  bool Idle() const { return heavy_.Idle(); }

  const std::shared_ptr<const TableSource>& Source() const { return source_; }
  const PhraseList& Rows() const { return rows_; }
  PhraseIndex EntryAt(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const Column& ColumnOf(const QModelIndex& index) const {
    return *columns_[static_cast<size_t>(index.column())];
  }
  QString ShownText(const QModelIndex& index) const;
  OnlySide OnlySideAt(const QModelIndex& index) const;
  QString TextWithMark(const QModelIndex& index) const;
  void TellOfNewValues();

  const Desktop& desktop_;
  mutable HeavyCells heavy_;
  std::vector<const Column*> columns_;
  std::shared_ptr<const TableSource> source_;
  PhraseList rows_;
};

}  // namespace korv
