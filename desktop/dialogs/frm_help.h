#pragma once

#include <QWidget>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace korv {

class ProgramText;

/// The help window: the help's text, its sections in a list beside it, and a search. Closing only hides it.
class frmHelp final : public QWidget {
 public:
  /// Title and text come from `text`, which is read once, here. A section begins with its heading.
  explicit frmHelp(const ProgramText& text, QWidget* parent = nullptr);

  QListWidget* lstContents = nullptr;
  QPlainTextEdit* txbHelpScreen = nullptr;
  QLineEdit* txbSearch = nullptr;
  QPushButton* cmdNext = nullptr;
  QPushButton* cmdPrevious = nullptr;
  QLabel* lblFound = nullptr;
  QPushButton* cmdClose = nullptr;

  void cmdClose_Click();
  /// Shows the section that is selected in the list.
  void lstContents_Click();
  /// Marks every place where the typed text stands, and goes to the first.
  void txbSearch_Change();
  /// Goes to the next place, or the one before, round the ends of the text.
  void GoToFound(int step);

 private:
  void ReadTexts(const ProgramText& text);
  void BuildControls();
  void FormatText();
  void ShowFound();

  std::vector<int> headings_;  ///< Block numbers of the sections' headings.
  std::vector<int> found_;     ///< Where the searched text begins.
  int current_ = 0;            ///< Index into found_.
};

}  // namespace korv
