#pragma once

#include <QWidget>

class QPlainTextEdit;
class QPushButton;

namespace korv {

class Clipboard;

/// Shows the text on the clipboard where the system has no viewer of its own. Only to be read.
class frmClipboard final : public QWidget {
 public:
  explicit frmClipboard(const Clipboard& clipboard, QWidget* parent = nullptr);

  QPlainTextEdit* txbClipboard = nullptr;
  QPushButton* cmdClose = nullptr;

  /// Shows the window with what is on the clipboard now.
  void ShowText();

 private:
  const Clipboard& clipboard_;
};

}  // namespace korv
