#pragma once

#include <QObject>
#include <QStringList>
#include <functional>

#include "desktop/results/table/phrase_table_model.h"

class QHeaderView;
class QMenu;
class QSettings;

namespace korv {

/// What a table shows: each kind has columns of its own that the user chooses.
enum class TableKind {
  OneSide,
  Comparison,
  Drafts,  ///< A comparison of a new version with an old one.
};

/// Which columns the table shows, in which order and how wide. The phrase takes the room that the others
/// leave, until the user gives it a width. The user's choice is kept in the store, by the
/// names of the columns, so that it outlives columns that come and go.
class ColumnChoice final : public QObject {
 public:
  /// All outlive this. Shows what is kept, or the columns of the beginning.
  ColumnChoice(QHeaderView& header, const PhraseTableModel& model, QSettings& store);

  std::function<void()> Changed = [] {};  ///< Other columns are shown.

  /// Shows the columns of another kind of table.
  void Use(TableKind kind);
  TableKind Kind() const { return kind_; }
  bool IsShown(int section) const;
  /// Their sections, from the left.
  std::vector<int> Shown() const;
  /// Hides what says the same of every phrase of one file, without forgetting the choice.
  void SetOneFile(bool oneFile);
  /// The user shows or hides a column.
  void Choose(int section, bool shown);
  /// Shows the columns that are kept and these; nothing else is kept.
  void ShowForNow(const QStringList& more);
  /// Back to what is kept.
  void ShowKept();
  /// Forgets what is kept.
  void RestoreDefaults();
  /// One checkable entry a column, and the way back to the columns of the beginning.
  void FillMenu(QMenu& menu);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QString Key() const;
  bool Offers(int section) const;
  QStringList KeptIds() const;
  QStringList DefaultIds() const;
  void Apply(const QStringList& ids);
  void HideOrShow();
  int UsualWidth(int section) const;
  void FillWithPhrase();
  void Keep();
  void KeepWidth(int section, int width);

  QHeaderView& header_;
  const PhraseTableModel& model_;
  QSettings& store_;
  QStringList chosen_;  ///< Ids, in no order.
  TableKind kind_ = TableKind::OneSide;
  bool oneFile_ = false;
  bool applying_ = false;  ///< What the header tells is our own doing.
};

}  // namespace korv
