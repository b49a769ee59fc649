#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "app/run/run.h"
#include "base/newest_job.h"
#include "desktop/desktop.h"
#include "desktop/results/table/presets.h"
#include "desktop/results/table/row_copier.h"
#include "desktop/results/table/row_menu.h"
#include "desktop/results/table/table_work.h"

class QBoxLayout;
class QTimer;

namespace korv {

class ColumnChoice;
class ComparisonBar;
class ElidingLabel;
class EmptyTableNote;
class PhraseGrid;
class PhraseTableModel;
class PresetNote;
class RowDetails;
class TableBar;

/// What a table shows: rows in their order, and columns from the left, as tables for other programs have
/// them.
struct TableInSight {
  PhraseList Rows;
  std::vector<const Column*> Columns;
  ValueChoice Values;
};

/// The phrases of a finished run as a table: all of them, ordered by any column, filtered while one types.
class PhraseTablePanel final : public QWidget {
 public:
  PhraseTablePanel(const Desktop& desktop, QWidget* parent);
  ~PhraseTablePanel() override;

  ComparisonBar* Sides = nullptr;  ///< Seen where a run compares.
  TableBar* Bar = nullptr;
  ElidingLabel* lblMatchFault = nullptr;
  PhraseGrid* tblPhrases = nullptr;
  RowDetails* Details = nullptr;

  /// The user wants to see where a phrase stands.
  std::function<void(PhraseIndex)> ShowContexts = [](PhraseIndex) {};
  /// What others do with a phrase. Those that are not set are not offered.
  RowActions Actions;
  std::function<void(PhraseIndex)> CurrentChanged = [](PhraseIndex) {};  ///< kNoPhrase: none is selected.
  /// The user wants to count again with the short words that the run dropped. Not offered where it is not
  /// set.
  std::function<void()> CountWithShortWords;

  /// The user would rather export the table than copy a great many rows. Not offered where it is not set.
  std::function<void()> ExportWanted;

  void cmdClearMatch_Click();
  void cmdRowDetails_Click();

  /// Shows a run, with the order and the filter that hold; null for nothing. No phrase is left out.
  /// What a run with two sides is compared by is what it was counted for, unless `comparedBy` says otherwise;
  /// orders of such runs and of others are kept apart.
  void Show(std::shared_ptr<const CountedRun> run, std::optional<ComparisonBasis> comparedBy = {});
  /// Whether the rows that were asked for are there, with all values in sight.
  bool Idle() const;
  /// While it is not Idle(), the rows that are found so far.
  TableInSight InSight() const;
  /// The phrase of the row that keys act on; kNoPhrase where there is none.
  PhraseIndex CurrentPhrase() const;
  /// Selects the row of a phrase; false where it has none.
  bool GoTo(PhraseIndex phrase);
  /// Shows none of these phrases, whatever the filter.
  void LeaveOut(std::vector<PhraseIndex> phrases);
  /// The focus goes to the filter, all of it selected.
  void StartFiltering();
  std::vector<QWidget*> TabOrder() const;

 private:
  QBoxLayout* MakeNotes();
  QWidget* MakeRows();
  void Connect();
  void ConnectGrid();
  void ConnectMenus();

  void UseSides(const CountedRun* run, std::optional<ComparisonBasis> comparedBy);
  void ShowTab();
  void SortBy(int section, Qt::SortOrder order);
  void FilterNow();
  void Ask();
  void Take(const TableAnswer& answer);
  void ShowCount(bool whole);
  void ColumnsChanged();
  void ChooseParts(PartChoice parts);
  void ShowDetails();
  void Copy(bool heading);
  int Find(int from, const QString& typed) const;
  void ShowRowMenu(const QPoint& at);
  void Follow(const Preset& preset);

  const Desktop& desktop_;
  PhraseTableModel* model_;
  ColumnChoice* columns_ = nullptr;
  EmptyTableNote* empty_ = nullptr;
  PresetNote* presetNote_ = nullptr;
  QTimer* tmrMatch_;
  TableRequest request_;
  std::shared_ptr<TableWork> work_;  ///< Of the run that is shown. Used by the job.
  RowCopier copier_;
  NewestJob job_;  ///< Last: its jobs use the above.
};

}  // namespace korv
