#pragma once

#include <QAbstractTableModel>
#include <QModelIndex>
#include <QVariant>
#include <memory>
#include <optional>
#include <utility>

#include "app/contexts/context_list.h"
#include "app/contexts/context_rows.h"
#include "base/number_format.h"

namespace korv {

/// The columns of a list of contexts.
enum class ContextColumn { Left, Phrase, Right, Place };
inline constexpr int kContextColumns = 4;

/// A list of contexts as a table. All rows are there at once; their texts are made for those that are looked
/// at.
class ContextsModel final : public QAbstractTableModel {
 public:
  /// Of a row that is a file's heading: true.
  static constexpr int kIsHeading = Qt::UserRole;

  /// `rows` outlives the model.
  ContextsModel(ContextRows& rows, NumberFormat numbers, QObject* parent)
      : QAbstractTableModel(parent), rows_(rows), numbers_(std::move(numbers)) {}

  /// Null for nothing.
  void Show(std::shared_ptr<const ContextList> list);
  const ContextList* List() const { return list_.get(); }
  const std::shared_ptr<const ContextList>& SharedList() const { return list_; }
  /// The texts of some rows have changed.
  void TextsCame();
  /// Nothing for a heading.
  std::optional<Place> PlaceAt(int row) const;
  /// The text of a row that is no heading.
  ContextText TextAt(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QString HeadingText(int row) const;
  QString CellText(int row, ContextColumn column) const;
  QString Tip(int row) const;

  ContextRows& rows_;
  NumberFormat numbers_;
  std::shared_ptr<const ContextList> list_;
};

}  // namespace korv
