#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "app/run/run.h"
#include "base/newest_job.h"
#include "desktop/desktop.h"
#include "desktop/results/table/table_work.h"

class QLabel;
class QPushButton;
class QTimer;
class QToolButton;

namespace korv {

class ColumnChoice;
class EmptyTableNote;
class MatchBar;
class PhraseGrid;
class PhraseTableModel;

/// The phrases of a finished run as a table: all of them, ordered by any column, filtered while one types.
class PhraseTablePanel final : public QWidget {
 public:
  PhraseTablePanel(const Desktop& desktop, QWidget* parent);
  ~PhraseTablePanel() override;

  MatchBar* Match = nullptr;
  QToolButton* cmdColumns = nullptr;
  QLabel* lblPhraseCount = nullptr;
  QLabel* lblMatchFault = nullptr;
  PhraseGrid* tblPhrases = nullptr;

  std::function<void(PhraseIndex)> ShowContexts = [](PhraseIndex) {
  };  ///< The user wants to see where it stands.
  std::function<void(PhraseIndex)> CurrentChanged = [](PhraseIndex) {};  ///< kNoPhrase: none is selected.

  void cmdClearMatch_Click();

  /// Shows a run, with the order and the filter that hold; null for nothing.
  void Show(std::shared_ptr<const CountedRun> run);
  /// Whether the rows that were asked for are there.
  bool Idle() const;
  /// The phrase of the row that keys act on; kNoPhrase where there is none.
  PhraseIndex CurrentPhrase() const;
  /// The focus goes to the filter, all of it selected.
  void StartFiltering();
  std::vector<QWidget*> TabOrder() const;

 private:
  void Build();
  void Connect();
  void SortBy(int section, Qt::SortOrder order);
  void FilterNow();
  void Ask();
  void Take(const TableAnswer& answer);
  void ShowCount(bool whole);

  const Desktop& desktop_;
  PhraseTableModel* model_;
  ColumnChoice* columns_ = nullptr;
  EmptyTableNote* empty_ = nullptr;
  QTimer* tmrMatch_;
  TableRequest request_;
  std::shared_ptr<TableWork> work_;  ///< Of the run that is shown. Used by the job.
  NewestJob job_;                    ///< Last: its jobs use the above.
};

}  // namespace korv
