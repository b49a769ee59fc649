#include "desktop/main_window/settings_controller.h"

#include <QCheckBox>
#include <QLineEdit>
#include <optional>
#include <utility>

#include "base/translation.h"
#include "desktop/dialogs/frm_popup.h"
#include "desktop/main_window/file_page.h"
#include "desktop/main_window/folder_page.h"
#include "desktop/main_window/output_file_panel.h"
#include "desktop/main_window/report_panel.h"
#include "desktop/main_window/source_panel.h"
#include "desktop/results/filter_panel.h"
#include "desktop/results/result_panel.h"
#include "desktop/settings_window/frm_params.h"
#include "desktop/settings_window/state_file_panel.h"
#include "desktop/settings_window/word_lists_panel.h"
#include "wordlists/questions.h"

namespace korv {

SettingsController::SettingsController(const Desktop& desktop, const MainPanels& panels, Workspace& work,
                                       frmParams& params, frmPopUp& popUp, Hooks hooks)
    : desktop_(desktop),
      panels_(panels),
      work_(work),
      params_(params),
      popUp_(popUp),
      hooks_(std::move(hooks)) {}

void SettingsController::Apply(const Settings& settings) {
  Change(settings);
  hooks_.Applied();
}

void SettingsController::Change(const Settings& settings) {
  work_.Change(ChangedBy::Program, settings);
  panels_.Source->Select(settings.SourceKind, ChangedBy::Program);
}

void SettingsController::PutBack(Workspace::State state) {
  const TextSource source = state.Chosen.SourceKind;
  work_.PutBack(ChangedBy::Program, std::move(state));
  panels_.Source->Select(source, ChangedBy::Program);
  params_.Lists->ShowAnew();
  hooks_.WordsChanged();
  hooks_.Applied();
}

void SettingsController::Initialize() {
  ClearFields();
  Settings settings = work_.Current();
  CopyValues(SettingsResetBy(ResetBy::Reinitialize), Settings{}, settings);
  work_.CountTogether(ChangedBy::Program, {});
  Change(settings);
  if (!settings.WordsFiles.empty() &&
      desktop_.Messages.Show({.Text = Tr("Do you wish to clear all words-to-ignore files?"),
                              .Title = Tr("Words-to-ignore files"),
                              .Icon = Icon::Question,
                              .Buttons = Buttons::YesNo,
                              .DefaultAnswer = Answer::No,
                              .Question = questions::kClearWordFiles}) == Answer::Yes) {
    params_.Lists->ClearWordFiles();
  }
  hooks_.Applied();
}

void SettingsController::ClearFields() {
  panels_.Result->ShowLabels({" ", " ", " ", " "});
  panels_.Source->File->ShowSizes({}, {});
  params_.StateFile->txbStateFile->clear();
}

std::string SettingsController::SaveStateTo(const std::filesystem::path& path) {
  const Settings& settings = work_.Current();
  const std::string fault =
      SavedState(desktop_.Files, desktop_.Messages, desktop_.StateFile).SaveState(path, settings);
  if (fault.empty()) keeper_.Remember(settings);
  return fault;
}

bool SettingsController::SaveState() {
  const std::string fault = SaveStateTo({});
  if (fault.empty()) return true;
  desktop_.Messages.Show({.Text = fault, .Title = Tr("Save state"), .Icon = Icon::Exclamation});
  return false;
}

void SettingsController::SaveStateFile(QWidget* window) {
  if (SaveState()) popUp_.PopUpInForm(Tr("Settings saved"), window, Tr("Save state"));
}

RestoreOutcome SettingsController::RestoreSavedState(const std::filesystem::path& path) {
  Settings settings = work_.Current();
  const RestoreOutcome outcome =
      SavedState(desktop_.Files, desktop_.Messages, desktop_.StateFile).RestoreSavedState(path, settings);
  // The source is that of the file.
  work_.CountTogether(ChangedBy::Program, {});
  Apply(settings);
  if (outcome.Result != kRestored) return outcome;
  keeper_.Remember(settings);
  LeaveRestoredFields();
  // What follows the last field is not for a file that ended before it.
  if (!outcome.EndedEarly) LoadRestoredWordFile(settings);
  hooks_.WordsChanged();
  return outcome;
}

void SettingsController::LeaveRestoredFields() {
  // As when the user leaves them.
  FolderPage& folder = *panels_.Source->Folder;
  panels_.Source->File->txbFile_LostFocus();
  folder.txbFileFilepathSpecifications_LostFocus(0);
  panels_.OutputFile->txbFile_LostFocus();
  folder.txbFileFilepathSpecifications_LostFocus(1);
  folder.txbFolder_LostFocus();
}

void SettingsController::LoadRestoredWordFile(const Settings& settings) {
  const std::string* const list = settings.WordsFile();
  if (list != nullptr && AskToLoadWordFile(*list, desktop_.Messages)) {
    params_.Lists->AttemptToReadWords(ListKind::WordsToIgnore);
  } else {
    params_.Lists->ForgetLoadedWords(ListKind::WordsToIgnore);
  }
}

void SettingsController::RestoreStateFile() {
  if (!desktop_.Files.FileExists(desktop_.StateFile)) return;
  const RestoreOutcome outcome = RestoreSavedState({});
  if (outcome.Result == kRestored) return;
  desktop_.Messages.Show(
      {.Text = LoadFailureText(outcome), .Title = Tr("Load settings"), .Icon = Icon::Exclamation});
}

void SettingsController::RememberStart() {
  keeper_.Remember(work_.Current());
}

void SettingsController::OfferToKeepSettings() {
  if (work_.Current().SaveStateOnQuit) return;
  if (!keeper_.WouldBeMissed(work_.Current())) return;
  const SettingsKeeper::Wish wish = keeper_.Ask(desktop_.Messages);
  // Where they are kept always, they are saved with the rest when the program ends.
  if (wish == SettingsKeeper::Wish::KeepAlways) {
    work_.Change(ChangedBy::Program, [](Settings& settings) { settings.SaveStateOnQuit = true; });
  }
  if (wish == SettingsKeeper::Wish::KeepNow) SaveState();
}

}  // namespace korv
