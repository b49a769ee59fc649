#pragma once

#include <QWidget>
#include <array>
#include <filesystem>
#include <functional>
#include <string>

#include "app/workspace.h"
#include "desktop/settings_window/frm_params_controls.h"

class QShortcut;

namespace korv {

class SettingsHost;

/// The Settings window: what counts as a word, which words are ignored or counted, where phrases end.
/// Closing only hides it.
class frmParams final : public QWidget, public FrmParamsControls {
 public:
  explicit frmParams(SettingsHost& host);
  ~frmParams() override;

  // ---- Settings (frm_params.cpp)

  /// Every default, and the single file as source.
  void SetDefaultValues();
  void EnableDisableButtons(bool enabled);
  /// The size lists are in use only while their rule is.
  void EnableWordSizes();
  bool ReallyQuit();

  void cmdRestoreDefaults_Click();
  /// 0 checks every checkbox, 1 clears it.
  void cmdSetOrClearCheckboxes_Click(int index);
  void cmdInitialize_Click();
  void cmdSaveState_Click();
  /// 0 loads a settings file, 1 saves one. What became of it stands in the state label, and for a command of
  /// another window in a pop-up over that one.
  void cmdSaveLoadState_Click(int index, QWidget* otherWindow = nullptr);
  void cmdUndo_Click();
  void cmdAskEverythingAgain_Click();
  /// Loads a settings file, as "Load settings from file" of the main window does with the chosen one.
  void OpenSettingsFile(const std::filesystem::path& path);
  void cmdClose_Click();
  void cmdQuit_Click();
  void chkCaseSignificant_Click();
  /// A box that admits characters into words was clicked.
  void chkAllowWords_Click(const QCheckBox& box);

  /// Shows what follows from settings, which the controls themselves show already.
  void SettingsHaveChanged(const SettingSet& changed);

  // ---- Words to ignore and to count (frm_params_words.cpp)

  void cmdSelectWordsFile_Click();
  void cboWordsFile_Click();
  void cmdClearWordsFile_Click();
  void cboCommonWordsLanguages_Click();
  void cmdClearWordsToIgnoreOrCount_Click();
  /// The frame now shows the words to ignore, or the count-only words and phrases.
  void optListKind_Click();
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
  /// Leaves a list without a loaded file; its files stay listed.
  void ForgetLoadedWords(ListKind kind);
  /// The file button's caption and the list's tool tip.
  void ShowWordFilesState();
  void EnableClearButtons();

 private:
  void Connect();
  /// `loaded` is called where that succeeds, once the word list has been read too.
  void LoadSettings(const std::filesystem::path& path, std::function<void()> loaded);
  bool SaveSettings(const std::filesystem::path& path);
  /// Does `change` to many controls at once, tells so and offers to take it back.
  void ChangeAtOnce(const std::function<void()>& change, const char* told, QPushButton* by);
  void ConnectWords();
  void FillLanguages();
  ListKind ShownKind() const;
  /// Shows the list of the kind that is shown, its selection and what it consists of.
  void ShowWordFiles();
  void ShowWordsState();
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  /// Whether the user wants `box` to change although that discards the result; otherwise it is put back.
  bool ConfirmsRereading(const QCheckBox& box);

  SettingsHost& host_;
  Workspace& work_;
  std::array<std::string, 2> loadedLabels_;
  QList<QShortcut*> idleShortcuts_;  ///< Keys that rest during a run.
};

}  // namespace korv
