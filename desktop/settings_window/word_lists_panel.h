#pragma once

#include <QGroupBox>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "app/workspace.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QLayout;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QStackedLayout;

namespace korv {

class ElidingLabel;
class SettingsHost;

/// The words to ignore, or the count-only words and phrases: their files, and the typed ones.
class WordListsPanel final : public QGroupBox {
 public:
  WordListsPanel(SettingsHost& host, QWidget* parent);
  ~WordListsPanel() override;

  QRadioButton* optWordsToIgnore = nullptr;             ///< The frame shows the words to ignore ...
  QRadioButton* optCountOnlyWordsAndPhrases = nullptr;  ///< ... or the count-only words and phrases.
  QLabel* lblCommonWordsLanguages = nullptr;
  QComboBox* cboCommonWordsLanguages = nullptr;
  QPushButton* cmdSelectWordsFile = nullptr;
  QComboBox* cboWordsFile = nullptr;
  QPushButton* cmdClearWordsFile = nullptr;
  QLabel* lblWordsToIgnoreOrCount = nullptr;
  std::array<QPlainTextEdit*, 2> txbWordsToIgnoreOrCount{};  ///< 0 words to ignore, 1 count-only.
  QPushButton* cmdClearWordsToIgnoreOrCount = nullptr;
  ElidingLabel* lblWordsState = nullptr;  ///< What the list that is shown consists of.

  std::function<void(const QString& text)> Told = [](const QString&) {};    ///< For the state label.
  std::function<void(const QString& text)> Untold = [](const QString&) {};  ///< Is no longer so.

  void cmdSelectWordsFile_Click();
  void cboWordsFile_Click();
  void cmdClearWordsFile_Click();
  void cboCommonWordsLanguages_Click();
  void cmdClearWordsToIgnoreOrCount_Click();
  /// The frame now shows the words to ignore, or the count-only words and phrases.
  void optListKind_Click();

  /// Fills the lists and begins to listen. Once, when the window around it has been laid out.
  void Start();
  void ShowList(ListKind kind);
  /// Puts the common words of English into the list, and loads them.
  void LoadCommonWordsOfEnglish();
  /// Loads the selected file of a list.
  void AttemptToReadWords(ListKind kind);
  /// Shows a message for the first fault of the typed words of each list ...
  void CheckAllowedExtraChars();
  /// ... or of one.
  void CheckAllowedExtraChars(ListKind kind);
  void ClearWordFiles();
  /// Everything the program may have changed in the workspace: the lists of files, what is loaded of them,
  /// and the typed count-only entries.
  void ShowAnew();
  /// Leaves a list without a loaded file; its files stay listed.
  void ForgetLoadedWords(ListKind kind);
  /// Shows the list of the kind that is shown, its selection and what it consists of.
  void ShowWordFiles();
  /// The file button's caption and the list's tool tip.
  void ShowWordFilesState();
  void ShowWordsState();
  void EnableClearButtons();
  std::vector<QWidget*> TabOrder() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // ---- word_lists_layout.cpp
  void Build();
  void BuildChoiceOfList(QGridLayout& layout);
  void BuildFiles(QGridLayout& layout);
  void BuildTypedWords(QGridLayout& layout);
  QLayout* BuildWordsBoxes();

  void Connect();
  ListKind ShownKind() const;

  SettingsHost& host_;
  Workspace& work_;
  QStackedLayout* wordsBoxes_ = nullptr;     ///< Shows one of the two boxes.
  std::array<std::string, 2> loadedLabels_;  ///< What the state label says of each loaded list.
};

}  // namespace korv
