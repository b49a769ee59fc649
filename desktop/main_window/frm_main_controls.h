#pragma once

#include <array>

#include "desktop/widgets/control_factory.h"

class QAction;
class QGroupBox;
class QMainWindow;
class QMenu;
class QPlainTextEdit;
class QProgressBar;
class QScrollArea;
class QStackedWidget;
class QTimer;

namespace korv {

class RecentList;
class ResultNotesPanel;

/// The main window's controls under their names, and where they stand. Owned by the window.
///
/// From the left: a column with what to count, in the order in which a newcomer needs it, and the count
/// button always in sight at its foot; then the result. Members of a pair have object names with "_0" and
/// "_1"; index 0 of `txbFile` is the input file, 1 the output file; index 0 of
/// `txbFileFilepathSpecifications` holds the patterns, 1 the exclusions.
struct FrmMainControls {
  // Source
  QRadioButton* optOnClipboard = nullptr;
  QRadioButton* optInFile = nullptr;
  QRadioButton* optFolder = nullptr;
  QStackedWidget* stkSource = nullptr;  ///< One page per source kind, each as high as it needs.
  RecentList* lstRecent = nullptr;      ///< Has what room the page leaves over: nothing below it jumps.
  QPushButton* cmdClipboardViewer = nullptr;
  std::array<QLineEdit*, 2> txbFile{};
  std::array<QPushButton*, 2> cmdFile{};
  std::array<QPushButton*, 2> cmdClearFile{};
  QLineEdit* txbFolder = nullptr;
  QPushButton* cmdFolder = nullptr;
  QPushButton* cmdClearFolder = nullptr;
  std::array<QLineEdit*, 2> txbFileFilepathSpecifications{};
  QCheckBox* chkIncludeSubfolders = nullptr;
  QPushButton* cmdListFiles = nullptr;
  QLabel* lblFilesize = nullptr;
  QLabel* lblXMLsize = nullptr;

  // Phrases
  std::array<QComboBox*, 2> cboPhraseLength{};
  QComboBox* cboMinimumFrequency = nullptr;

  // Words to ignore
  QRadioButton* optAllowPhrasesAllWordsToIgnore = nullptr;
  QRadioButton* optExcludePhrasesWithWordToIgnore = nullptr;
  QRadioButton* optRemoveWordsToIgnore = nullptr;
  QRadioButton* optExcludePhrasesAllWordsToIgnore = nullptr;
  QLabel* lblWordsToIgnoreNotice = nullptr;
  QPushButton* cmdSetParameters = nullptr;

  // Report
  QComboBox* cboWordOrder = nullptr;
  QComboBox* cboDisplayFormat = nullptr;
  QCheckBox* chkDisplayRelativeFrequency = nullptr;
  QCheckBox* chkSortByNumberOfFiles = nullptr;
  QCheckBox* chkFileList = nullptr;
  QCheckBox* chkSuppressWords = nullptr;

  // Output file
  QCheckBox* chkDisableOutputToFile = nullptr;

  // Run
  QPushButton* cmdCountPhrases = nullptr;
  QProgressBar* prgProgress = nullptr;
  QLabel* lblTwirler = nullptr;
  QLabel* lblTimeElapsed = nullptr;
  QPushButton* cmdSaveState = nullptr;
  QPushButton* cmdHelp = nullptr;
  QPushButton* cmdQuit = nullptr;

  // Result
  QLabel* lblNumberOfWords = nullptr;
  QLabel* lblNumOccurrences = nullptr;
  QLabel* lblTotalNumOccurrences = nullptr;
  QLabel* lblNumWordsExcluded = nullptr;
  ResultNotesPanel* Notes = nullptr;
  QPlainTextEdit* txbOutput = nullptr;
  QPushButton* cmdClearOutput = nullptr;

  // Filter
  QGroupBox* fraFilterResults = nullptr;
  QLineEdit* txbFilterWords = nullptr;
  QRadioButton* optIncludeAllWords = nullptr;
  QRadioButton* optIncludeAllWordsInSameOrder = nullptr;
  QRadioButton* optIncludeAllWordsAsSubphrase = nullptr;
  QPushButton* cmdFilterResults = nullptr;
  QPushButton* cmdClear = nullptr;

  // Groups of the column, in its order.
  QGroupBox* fraSource = nullptr;
  QGroupBox* fraPhrases = nullptr;
  QGroupBox* fraWordsToIgnore = nullptr;
  QGroupBox* fraReport = nullptr;
  QGroupBox* fraOutputFile = nullptr;

  // Status line
  QLabel* lblStatusText = nullptr;
  QLabel* lblStatusEncoding = nullptr;
  QLabel* lblStatusFiles = nullptr;
  QLabel* lblStatusWords = nullptr;
  QLabel* lblStatusPhrases = nullptr;

  QTimer* Timer1 = nullptr;
  QTimer* Timer2 = nullptr;

 protected:
  /// Makes every control and lays out `window`.
  void BuildControls(QMainWindow* window);

 private:
  QWidget* BuildColumn(QWidget* parent);
  QWidget* BuildSource(QWidget* parent);
  void BuildSourcePages(QWidget* parent);
  void FitSourceToItsPages();
  QWidget* BuildPhrases(QWidget* parent);
  QWidget* BuildWordsToIgnore(QWidget* parent);
  QWidget* BuildReport(QWidget* parent);
  QWidget* BuildOutputFile(QWidget* parent);
  QWidget* BuildRun(QWidget* parent);
  QWidget* BuildResult(QWidget* parent);
  QWidget* BuildFilter(QWidget* parent);
  void BuildStatusLine(QMainWindow* window);
  void SetTabOrder();
};

/// The font of the boxes that show words and results: "Courier New", or what the system has in its place.
QFont WordsFont();

}  // namespace korv
