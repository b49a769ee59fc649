#pragma once

#include <QWidget>

class QPlainTextEdit;
class QPushButton;

namespace korv {

class ProgramText;

/// The help window: one text to read. Closing only hides it.
class frmHelp final : public QWidget {
 public:
  /// Title and text come from `text`, which is read once, here.
  explicit frmHelp(const ProgramText& text, QWidget* parent = nullptr);

  QPlainTextEdit* txbHelpScreen = nullptr;
  QPushButton* cmdClose = nullptr;

  void cmdClose_Click();
};

}  // namespace korv
