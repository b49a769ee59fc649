#pragma once

#include <QTabWidget>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "app/run/output_box.h"
#include "app/run/shown_result.h"
#include "desktop/desktop.h"

class QSplitter;
class QToolButton;

namespace korv {

class ContextsPane;
class HeadLine;
class PhraseTablePanel;
class PicturesPane;
class ResultNotesPanel;
class ResultPanel;
class RunTabs;

/// The views of a finished run, in the order of their tabs.
enum class RunView { Table, Report, Pictures };

/// All that is shown of the finished runs: their tabs, and of the one in front a line of what it is and its
/// views. Before the first run only the text box is there, which says how to begin.
class ResultFrame final : public QWidget {
 public:
  ResultFrame(const Desktop& desktop, const OutputBoxHooks& hooks, QWidget* parent);

  RunTabs* Tabs = nullptr;
  HeadLine* Head = nullptr;
  ResultNotesPanel* Notes = nullptr;
  QTabWidget* Views = nullptr;
  QSplitter* splTable = nullptr;  ///< The table over the contexts.
  PhraseTablePanel* Table = nullptr;
  ContextsPane* Contexts = nullptr;
  ResultPanel* Report = nullptr;
  QToolButton* cmdReportOptions = nullptr;  ///< Folds away the options of the report.
  PicturesPane* Pictures = nullptr;

  std::function<void()> ViewChanged = [] {};  ///< Another view is in front.

  /// Brings `result` into all views; null for none.
  void ShowRun(const std::shared_ptr<ShownResult>& result);
  RunView View() const;
  /// Brings a view in front, of the runs to come too. Before the first run it is not seen yet.
  void ShowView(RunView view);
  /// The focus goes to the filter of the view in front.
  void StartFiltering();
  /// Keeps for the next window how the room is divided.
  void StoreLayout() const;
  /// The order of the controls. `options` are those above the report, `below` stands below its text box.
  std::vector<QWidget*> TabOrder(const std::vector<QWidget*>& options, QWidget* below) const;
  QSize minimumSizeHint() const override;

 private:
  QWidget* MakeTable();
  void MakeOptionsButton();
  /// Before the first run the options cannot be folded away: there are no tabs, and so no button.
  void ShowReportOptions();
  void ShowContexts();
  /// Gives the pictures the phrases that are selected in the table.
  void PictureSelected();

  const Desktop& desktop_;
  RunView chosen_ = RunView::Table;
};

}  // namespace korv
