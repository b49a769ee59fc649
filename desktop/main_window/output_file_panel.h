#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "desktop/desktop.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace korv {

/// The file that a report is written into.
class OutputFilePanel final : public QWidget {
 public:
  OutputFilePanel(const Desktop& desktop, QWidget* parent);
  ~OutputFilePanel() override;

  QPushButton* cmdFile = nullptr;       ///< Index 1 of the pair; index 0 is the input file's.
  QLineEdit* txbFile = nullptr;         ///< Likewise.
  QPushButton* cmdClearFile = nullptr;  ///< Likewise.
  QCheckBox* chkDisableOutputToFile = nullptr;

  std::function<void()> EnabledByUser = [] {};  ///< A file is named, and output to it enabled again.
  /// Whether a file must not be written; says why.
  std::function<bool(const std::string& path)> Refuses = [](const std::string&) { return false; };

  void cmdFile_Click();
  void cmdClearFile_Click();
  void txbFile_LostFocus();
  void chkDisableOutputToFile_Click();

  /// Lets the user choose the file. False when none was, or one that must not be written.
  bool ChooseOutputFile();
  /// Where the report goes: trimmed, and empty while output to a file is disabled or no file is named.
  std::string Path() const;
  /// The file may be named during a run, but not cleared.
  void EnableDisableButtons(bool enabled);
  void EnableClearButtons();
  void SetPathToolTips();
  std::vector<QWidget*> TabOrder() const;

 private:
  const Desktop& desktop_;
  bool enabled_ = true;
};

}  // namespace korv
