#include "cli/settings_files.h"

#include <utility>

#include "app/settings/saved_state.h"
#include "base/translation.h"
#include "cli/about_file.h"
#include "sources/detect/classification.h"
#include "sources/detect/source_checks.h"

namespace korv {

namespace {
constexpr const char* kExtension = "korv";
}

bool SettingsFiles::Load(Settings& settings) const {
  if (options_.SettingsFile.empty()) return true;
  AboutFile messages(messages_, options_.SettingsFile);
  SavedState state(env_.Files, messages, {});
  const RestoreOutcome outcome = state.RestoreSavedState(PathFromText(options_.SettingsFile), settings);
  if (outcome.Complete()) return true;
  const std::string failure = outcome.EndedEarly
                                  ? Tr("Error when attempting to load settings: Input past end of file.")
                                  : LoadFailureText(outcome);
  messages.Show({.Text = failure, .Title = Tr("Load settings"), .Icon = Icon::Exclamation});
  return false;
}

bool SettingsFiles::Save(const Settings& settings) const {
  if (options_.SaveSettingsFile.empty()) return true;
  if (!MayBeReplaced(settings)) return false;
  AboutFile messages(messages_, options_.SaveSettingsFile);
  SavedState state(env_.Files, messages, {});
  const std::string error =
      state.SaveState(PathFromText(options_.SaveSettingsFile), WithPathsInFull(settings));
  if (error.empty()) return true;
  messages.Show({.Text = error, .Title = Tr("Save settngs"), .Icon = Icon::Exclamation});
  return false;
}

bool SettingsFiles::MayBeReplaced(const Settings& settings) const {
  const std::string& file = options_.SaveSettingsFile;
  for (const std::string* other : {&settings.InputFile, &options_.Output, &settings.OutputFile,
                                   &options_.IgnoreFile, &options_.CountOnlyFile, settings.WordsFile()})
    if (other && !other->empty() && PathsMeetInOneFile(env_.Files, *other, file))
      return Refuse(Fill(Tr("The settings file cannot be the same as %1."), {*other}));
  const std::filesystem::path path = PathFromText(file);
  if (!env_.Files.FileExists(path)) return true;
  if (settings.SourceKind == TextSource::Clipboard && !env_.InputPath.empty() &&
      env_.Files.SameFile(env_.InputPath, path))
    return Refuse(Tr("The settings file cannot be the same as the input file."));
  if (settings.SourceKind == TextSource::Folder && FileExtension(file, true) != kExtension &&
      OutputIsInFolder(env_.Files, settings.Folder, file, settings.IncludeSubfolders))
    return Refuse(Tr("The settings file cannot replace a file of the folder."));
  // A device or a pipe has no size, and nothing in it that could be lost.
  if (!options_.Force && env_.Files.FileSize(path) && !IsSettingsFile(env_.Files, path))
    return Refuse(Fill(Tr("The file %1 exists and is no settings file.  --force replaces it."), {file}));
  return true;
}

bool SettingsFiles::Refuse(std::string text) const {
  messages_.Show({.Text = std::move(text), .Title = Tr("Error"), .Icon = Icon::Exclamation});
  return false;
}

// Settings may be loaded from another folder than the one that the command line had in mind.
Settings SettingsFiles::WithPathsInFull(Settings settings) const {
  if (options_.NamesSource() && !options_.FromStandardInput()) {
    if (settings.SourceKind == TextSource::Folder)
      settings.Folder = InFull(TrimmedFolderPath(settings.Folder));
    else
      settings.InputFile = InFull(TrimmedPath(settings.InputFile));
  }
  if (!options_.Output.empty()) settings.OutputFile = InFull(TrimmedPath(settings.OutputFile));
  return settings;
}

std::string SettingsFiles::InFull(const std::string& path) const {
  const std::filesystem::path full = env_.Files.AbsolutePath(PathFromText(path));
  const std::string text = PathToText(full);
  // A name that is no text is left as it is, for the saving to refuse.
  return PathFromText(text) == full ? text : path;
}

}  // namespace korv
