#pragma once

#include <QAbstractTableModel>
#include <memory>
#include <vector>

#include "base/number_format.h"
#include "desktop/results/table/table_source.h"
#include "engine/analysis/phrase_list.h"
#include "report/columns/column.h"

namespace korv {

/// All rows of a phrase list at once, made as they are looked at: a row leads to an entry of the run, and the
/// columns give its cells. Holds no text and nothing per row beside the list.
class PhraseTableModel final : public QAbstractTableModel {
 public:
  /// `numbers` outlives this.
  PhraseTableModel(const NumberFormat& numbers, QObject* parent);

  /// The columns of the table, by section. Constants.
  const std::vector<const Column*>& Columns() const { return columns_; }
  /// The section of a column; -1 where there is none.
  int SectionOf(std::string_view id) const;

  /// Shows these rows of a run instead of what it showed; a null source for nothing.
  void Show(std::shared_ptr<const TableSource> source, PhraseList rows);
  /// Values that were still being computed have come.
  void TellOfNewValues();

  const std::shared_ptr<const TableSource>& Source() const { return source_; }
  const PhraseList& Rows() const { return rows_; }
  PhraseIndex EntryAt(int row) const;
  /// The value of a cell; a text lives as long as `text`, which is used for it. Not defined while it is being
  /// computed.
  Cell ValueAt(int row, int section, std::string& text) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const Column& ColumnOf(const QModelIndex& index) const {
    return *columns_[static_cast<size_t>(index.column())];
  }
  QString ShownText(const QModelIndex& index) const;

  const NumberFormat& numbers_;
  std::vector<const Column*> columns_;
  std::shared_ptr<const TableSource> source_;
  PhraseList rows_;
};

}  // namespace korv
