#pragma once

#include <QString>
#include <filesystem>
#include <functional>
#include <string>

#include "app/settings/saved_state.h"
#include "app/workspace.h"
#include "desktop/desktop.h"
#include "wordlists/word_list.h"

class QWidget;

namespace korv {

/// A list file that is to be read, and what was read.
struct WordListRequest {
  ListKind Kind;
  std::filesystem::path Path;
  WordRules Rules;
};
struct ReadWordList {
  WordList List;
  std::string StateLabel;  ///< "12 words-to-ignore loaded"
};

/// What the Settings window needs of the program around it.
class SettingsHost {
 public:
  virtual ~SettingsHost() = default;

  virtual const Desktop& Outside() const = 0;

  // ---- Settings

  /// The settings and the lists of words, which the controls of both windows show.
  virtual Workspace& Work() = 0;
  /// These settings hold from now on; nothing is asked. A list in sight follows them.
  virtual void ApplySettings(const Settings& settings) = 0;
  /// A fresh state, as "Reinitialize" wants it. May ask whether to clear the word-list files.
  virtual void Initialize() = 0;
  /// An empty path is the state file. Empty on success, else the message to show.
  virtual std::string SaveStateTo(const std::filesystem::path& path) = 0;
  /// Saves the state file and tells so in a pop-up over `window`.
  virtual void SaveStateFile(QWidget* window) = 0;
  /// Loads a settings file; may ask to load its word list.
  virtual RestoreOutcome RestoreSavedState(const std::filesystem::path& path) = 0;

  // ---- Runs

  /// A count or a listing goes on.
  virtual bool Running() const = 0;
  /// There is a result, which was counted under these word rules.
  virtual bool ResultKeepsTo(const WordRules& rules) const = 0;
  /// `done` is not called when the file cannot be read; the user has been told.
  virtual void ReadWords(const WordListRequest& request, std::function<void(ReadWordList)> done) = 0;
  /// Calls `act` once nothing goes on, which may be now.
  virtual void WhenIdle(std::function<void()> act) = 0;

  // ---- The windows

  /// Words to ignore, or what they do, may be others.
  virtual void SetWordsToIgnoreNotice() = 0;
  /// A notice over `window`, or over the main window where that is null.
  virtual void PopUpInForm(const QString& notice, QWidget* window) = 0;
  virtual void cmdHelp_Click() = 0;
  virtual void cmdQuit_Click() = 0;
};

}  // namespace korv
