#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "desktop/desktop.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace korv {

/// The source page of a single file.
class FilePage final : public QWidget {
 public:
  FilePage(const Desktop& desktop, QWidget* parent);
  ~FilePage() override;

  QPushButton* cmdFile = nullptr;       ///< Index 0 of the pair; index 1 is the output file's.
  QLineEdit* txbFile = nullptr;         ///< Likewise.
  QPushButton* cmdClearFile = nullptr;  ///< Likewise.
  QLabel* lblFilesize = nullptr;
  QLabel* lblXMLsize = nullptr;

  std::function<void(const QString& path)> Chosen = [](const QString&) {};  ///< In the system's dialog.

  void cmdFile_Click();
  void cmdClearFile_Click();
  void txbFile_LostFocus();

  /// Whether the single file is the source. Sizes are shown only of a source.
  void SetSelected(bool selected) { selected_ = selected; }
  /// Shows the size of the file that is named.
  void ShowFileSizes();
  /// Shows these texts; an empty one clears its label.
  void ShowSizes(const std::string& fileSize, const std::string& textSize);
  void EnableDisableButtons(bool enabled);
  void EnableClearButtons();
  void SetPathToolTips();

 private:
  const Desktop& desktop_;
  bool selected_ = true;
  bool enabled_ = true;
};

}  // namespace korv
