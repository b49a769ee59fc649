#include "desktop/results/table/phrase_table_model.h"

#include <algorithm>
#include <string>

#include "desktop/results/table/only_side.h"
#include "desktop/results/table/shown_cell.h"
#include "desktop/results/table/table_columns.h"
#include "desktop/toolkit/plain_tip.h"
#include "desktop/toolkit/text.h"

namespace korv {

namespace {

const QString kStillComputed = QStringLiteral("\u2026");

}  // namespace

PhraseTableModel::PhraseTableModel(const Desktop& desktop, QObject* parent)
    : QAbstractTableModel(parent),
      desktop_(desktop),
      heavy_(desktop.Loop, [this] { TellOfNewValues(); }),
      columns_(WindowColumns(TableOf::TwoSides)) {}

int PhraseTableModel::SectionOf(std::string_view id) const {
  const auto found = std::ranges::find(columns_, id, [](const Column* column) { return column->Id; });
  return found == columns_.end() ? -1 : static_cast<int>(found - columns_.begin());
}

void PhraseTableModel::Show(std::shared_ptr<const TableSource> source, PhraseList rows) {
  beginResetModel();
  if (source_ != source) heavy_.Use(source);
  source_ = std::move(source);
  rows_ = std::move(rows);
  endResetModel();
}

void PhraseTableModel::ShowValues(std::shared_ptr<const TableSource> source) {
  heavy_.Use(source);
  source_ = std::move(source);
  TellOfNewValues();
}

void PhraseTableModel::TellOfNewValues() {
  if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

PhraseIndex PhraseTableModel::EntryAt(int row) const {
  return rows_.EntryAt(static_cast<uint32_t>(row));
}

int PhraseTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.Rows());
}

int PhraseTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QString PhraseTableModel::ShownText(const QModelIndex& index) const {
  const Column& column = ColumnOf(index);
  const PhraseIndex entry = EntryAt(index.row());
  if (!source_->Has(column.Needs)) return kStillComputed;
  std::string text;
  if (!HeavyCells::Holds(*source_, column, entry))
    return ShownCell(column, source_->ValueOf(column, entry, text), desktop_.Numbers);
  const std::optional<Cell> found = heavy_.Find(column, entry);
  return found ? ShownCell(column, *found, desktop_.Numbers) : kStillComputed;
}

OnlySide PhraseTableModel::OnlySideAt(const QModelIndex& index) const {
  const Column& column = ColumnOf(index);
  return source_->Has(column.Needs) ? OnlySideOf(*source_, column, EntryAt(index.row())) : OnlySide();
}

QString PhraseTableModel::TextWithMark(const QModelIndex& index) const {
  const QString text = ShownText(index);
  const OnlySide only = OnlySideAt(index);
  return only.Mark.isEmpty() ? text : QStringLiteral("%1 %2").arg(text, only.Mark);
}

QVariant PhraseTableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const Column& column = ColumnOf(index);
  switch (role) {
    case Qt::DisplayRole:
      return TextWithMark(index);
    case Qt::AccessibleTextRole: {
      const OnlySide only = OnlySideAt(index);
      return only.Mark.isEmpty() ? QVariant() : QStringLiteral("%1, %2").arg(ShownText(index), only.Sentence);
    }
    case Qt::ToolTipRole:
      // A text may be cut.
      return column.Type == ColumnType::Text ? PlainTip(ShownText(index)) : OnlySideAt(index).Sentence;
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::AlignVCenter |
                                 (column.Align == Alignment::Left ? Qt::AlignLeft : Qt::AlignRight));
    default:
      return {};
  }
}

QVariant PhraseTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const Column& column = *columns_[static_cast<size_t>(section)];
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(HeadingText(column));
    case Qt::AccessibleDescriptionRole:
      return ToQt(DefinitionText(column));
    case Qt::ToolTipRole:
      return source_ ? TipOfColumn(column, source_->Run().Facts, source_->Choice().Parts, desktop_.Numbers)
                     : ToQt(DefinitionText(column));
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::AlignVCenter |
                                 (column.Align == Alignment::Left ? Qt::AlignLeft : Qt::AlignRight));
    case Qt::InitialSortOrderRole:
      return DescendsFirst(column) ? Qt::DescendingOrder : Qt::AscendingOrder;
    default:
      return {};
  }
}

}  // namespace korv
