#pragma once

#include <QGroupBox>
#include <vector>

#include "app/workspace.h"
#include "desktop/desktop.h"
#include "desktop/main_window/recent_sources.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QMenu;
class QToolButton;

namespace korv {

class SourcePanel;

/// What the source, side A, is compared with: side B, and how. Seen while the window compares.
class ComparePanel final : public QGroupBox {
 public:
  /// All have to outlive this.
  ComparePanel(const Desktop& desktop, Workspace& work, SourcePanel& source, QWidget* parent);
  ~ComparePanel() override;

  QLineEdit* txbCompared = nullptr;
  QToolButton* cmdCloseCompare = nullptr;
  QToolButton* cmdComparedFile = nullptr;
  QToolButton* cmdComparedFolder = nullptr;
  QToolButton* cmdSwapSides = nullptr;
  QToolButton* cmdRecentPairs = nullptr;
  QComboBox* cboCompareBy = nullptr;  ///< In the order of ComparisonBasis.
  QCheckBox* chkDrafts = nullptr;

  void cmdCloseCompare_Click();
  void cmdComparedFile_Click();
  void cmdComparedFolder_Click();
  void cmdSwapSides_Click();

  /// The window compares from now on; the focus goes to the path.
  void Open();
  /// Makes a file or a folder side B.
  void Take(const QString& path);
  /// The same of what was dropped, which has to be one.
  void TakeDropped(const QStringList& paths);
  /// Shows what the workspace says.
  void Follow();
  /// Two sides that were counted are the most recent pair. Only what is one path can be chosen again.
  void Remember(const RunRequest& counted);
  void EnableDisableButtons(bool enabled);
  std::vector<QWidget*> TabOrder() const;

 private:
  void Build();
  void Connect();
  /// Changes what the source is compared with by `edit`.
  void Change(const std::function<void(ComparedWith&)>& edit);
  /// The path of side A; empty where it has none or several.
  QString PathOfA() const;
  void FillPairs(QMenu* menu);
  void EnableWhatApplies();

  const Desktop& desktop_;
  Workspace& work_;
  SourcePanel& source_;
  RecentSources pairs_;  ///< Both paths of each, with a line end between them.
  bool enabled_ = true;
  bool following_ = false;  ///< What becomes of the controls is no choice of the user's.
};

}  // namespace korv
