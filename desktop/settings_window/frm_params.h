#pragma once

#include <QWidget>
#include <array>
#include <filesystem>
#include <functional>
#include <optional>

#include "app/settings/settings.h"
#include "desktop/settings_window/frm_params_controls.h"
#include "engine/counting/word_filters.h"
#include "wordlists/word_file_list.h"
#include "wordlists/word_list.h"

class QShortcut;

namespace korv {

class SettingsHost;

/// The Settings window: what counts as a word, which words are ignored or counted, where phrases end.
/// Closing only hides it; its controls are the one place where these options are kept.
class frmParams final : public QWidget, public FrmParamsControls {
 public:
  explicit frmParams(SettingsHost& host);
  ~frmParams() override;

  // ---- Settings (frm_params.cpp)

  /// Puts every default into its control, and selects the single file as source.
  void SetDefaultValues();
  /// The sizes as the lists select them before anything else has been chosen: "3" and "40".
  void SelectStartUpSizes();
  /// The sizes of SetDefaultValues(): "3" and "50".
  void SelectDefaultSizes();
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
  void chkIgnoreShortWords_Click();
  void chkCaseSignificant_Click();
  /// A box that admits characters into words was clicked.
  void chkAllowWords_Click(QCheckBox* box);

  /// Some option is not what it was, or another source is selected.
  void OptionsHaveChanged();

  // ---- Words to ignore and to count (frm_params_words.cpp)

  void cmdSelectWordsFile_Click();
  void cboWordsFile_Click();
  void cmdClearWordsFile_Click();
  void cboCommonWordsLanguages_Click();
  void cmdClearWordsToIgnoreOrCount_Click();
  /// The frame now shows the words to ignore, or the count-only words and phrases.
  void optListKind_Click();
  void ShowList(ListKind kind);
  void SetPathToCWDs_Eng();
  /// Loads the selected file of a list.
  void AttemptToReadWords(ListKind kind);
  /// Shows a message for the first fault of the typed words of each list ...
  void CheckAllowedExtraChars();
  /// ... or of one.
  void CheckAllowedExtraChars(ListKind kind);
  bool HasWordFiles() const { return !FilesOf(ListKind::WordsToIgnore).Paths().empty(); }
  void ClearWordFiles();
  /// Leaves a list without a loaded file; its files stay listed.
  void ForgetLoadedWords(ListKind kind);
  void ClearExtraWords();
  void SelectNoLanguage();
  /// The file button's caption and the list's tool tip.
  void ShowWordFilesState();
  void EnableClearButtons();
  /// The list of words-to-ignore files, as it is saved and restored.
  void GatherWordFiles(Settings& settings) const;
  void ApplyWordFiles(const Settings& settings);
  /// The lists of a run, from the loaded files and the typed words.
  WordFilterSpec GatherWordFilterSpec(const WordRules& rules) const;
  /// Whether any word to ignore is in force.
  bool HasWordsToIgnore() const;

 private:
  void Connect();
  bool LoadSettings(const std::filesystem::path& path);
  bool SaveSettings(const std::filesystem::path& path);
  /// Does `change` to many controls at once, tells so and offers to take it back.
  void ChangeAtOnce(const std::function<void()>& change, const char* told, QPushButton* by);
  void ConnectOptions();
  void ConnectWords();
  void FillLanguages();
  ListKind ShownKind() const;
  WordFileList& FilesOf(ListKind kind) { return wordFiles_[static_cast<size_t>(kind)]; }
  const WordFileList& FilesOf(ListKind kind) const { return wordFiles_[static_cast<size_t>(kind)]; }
  std::optional<WordList>& LoadedOf(ListKind kind) { return loaded_[static_cast<size_t>(kind)]; }
  /// What the box of the extra words holds, as typed.
  std::string TypedOf(ListKind kind) const;
  /// Shows the list of the kind that is shown, its selection and what it consists of.
  void ShowWordFiles();
  void ShowWordsState();
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  /// Whether the user wants `box` to change although that discards the result; otherwise it is put back.
  bool ConfirmsRereading(QCheckBox* box);

  SettingsHost& host_;
  std::array<WordFileList, 2> wordFiles_{WordFileList(ListKind::WordsToIgnore),
                                         WordFileList(ListKind::CountOnly)};
  std::array<std::optional<WordList>, 2> loaded_;
  std::array<std::string, 2> loadedLabels_;
  QList<QShortcut*> idleShortcuts_;  ///< Keys that rest during a run.
};

}  // namespace korv
