#pragma once

#include <QWidget>
#include <memory>

#include "desktop/desktop.h"

class QPushButton;

namespace korv {

class frmClipboard;

/// The source page of the clipboard.
class ClipboardPage final : public QWidget {
 public:
  ClipboardPage(const Desktop& desktop, QWidget* parent);
  ~ClipboardPage() override;

  QPushButton* cmdClipboardViewer = nullptr;

  /// Shows the system's viewer, or the program's own where the system has none.
  void cmdClipboardViewer_Click();
  void HideViewer();

 private:
  const Desktop& desktop_;
  std::unique_ptr<frmClipboard> viewer_;
};

}  // namespace korv
