#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "app/texts/program_text.h"
#include "app/workspace.h"
#include "desktop/desktop.h"
#include "engine/run_options.h"

class QCheckBox;
class QComboBox;

namespace korv {

/// How a result is listed: order, format and columns, in a row that breaks where the window is narrow.
class ReportPanel final : public QWidget {
 public:
  ReportPanel(const Desktop& desktop, Workspace& work, QWidget* parent);
  ~ReportPanel() override;

  QComboBox* cboWordOrder = nullptr;
  QComboBox* cboDisplayFormat = nullptr;
  QCheckBox* chkDisplayRelativeFrequency = nullptr;
  QCheckBox* chkFileList = nullptr;  ///< Shown for a folder.
  QCheckBox* chkSuppressWords = nullptr;
  /// Not laid out here: it stands below the list that it sorts.
  QCheckBox* chkSortByNumberOfFiles = nullptr;

  std::function<void()> Changed = [] {};  ///< The user has chosen something.

  void cboDisplayFormat_Click();
  void cboWordOrder_Click();
  void chkDisplayRelativeFrequency_Click();
  void chkSortByNumberOfFiles_Click();
  void chkFileList_Click();

  /// Puts the items into the lists.
  void FillLists(const ProgramText& texts);
  /// Enables, disables and corrects what depends on format, order, source and relative frequency. `tells`:
  /// says that a format is not available.
  void EnableDisableReportOptions(TextSource source, bool tells);
  std::vector<QWidget*> TabOrder() const;

 private:
  void Build();
  QLayout* WithCaption(const char* caption, QComboBox* list);
  void Connect();

  const Desktop& desktop_;
  Workspace& work_;
  TextSource source_ = TextSource::SingleFile;
};

}  // namespace korv
