#include "app/workspace.h"

#include <utility>

#include "app/run/comparison_request.h"
#include "sources/detect/source_checks.h"
#include "wordlists/load_word_filters.h"
#include "wordlists/typed_words.h"

namespace korv {

Workspace::Workspace(Settings settings) : settings_(std::move(settings)) {
  TakeFilesOfSettings();
}

void Workspace::TakeFilesOfSettings() {
  WordFileList& files = PartOf(ListKind::WordsToIgnore).Files;
  files.Restore(settings_.WordsFiles, settings_.SelectedWordsFile);
  // What a list does not take, settings do not keep.
  settings_.WordsFiles = files.Paths();
  settings_.SelectedWordsFile = files.Selected();
}

void Workspace::Change(ChangedBy by, const Settings& settings) {
  const Settings before = std::exchange(settings_, settings);
  TakeFilesOfSettings();
  if (settings_.Folder != before.Folder) together_.clear();
  const SettingSet changed = DifferencesOf(before, settings_);
  if (changed.any()) Tell(changed, by);
}

void Workspace::Tell(const SettingSet& changed, ChangedBy by) {
  // By index: a listener may bring another one.
  for (size_t k = 0; k < listeners_.size(); ++k) listeners_[k](changed, by);
}

void Workspace::CountTogether(ChangedBy by, std::vector<SourcePath> paths) {
  if (paths == together_) return;
  const Settings before = settings_;
  together_ = std::move(paths);
  if (!together_.empty()) settings_.SourceKind = TextSource::Folder;
  Tell(DifferencesOf(before, settings_), by);
}

void Workspace::Change(ChangedBy by, const std::function<void(Settings&)>& edit) {
  Settings settings = settings_;
  edit(settings);
  Change(by, settings);
}

void Workspace::ChangeFiles(ChangedBy by, ListKind kind, const std::function<void(WordFileList&)>& edit) {
  if (kind == ListKind::CountOnly) return edit(PartOf(kind).Files);
  WordFileList files = FilesOf(kind);
  edit(files);
  Change(by, [&files](Settings& settings) {
    settings.WordsFiles = files.Paths();
    settings.SelectedWordsFile = files.Selected();
  });
}

const WordList* Workspace::LoadedOf(ListKind kind) const {
  const std::optional<WordList>& loaded = PartOf(kind).Loaded;
  return loaded ? &*loaded : nullptr;
}

const std::string& Workspace::TypedOf(ListKind kind) const {
  return kind == ListKind::WordsToIgnore ? settings_.ExtraWordsToIgnore : countOnly_;
}

bool Workspace::HasWordsToIgnore() const {
  const WordList* const loaded = LoadedOf(ListKind::WordsToIgnore);
  return (loaded != nullptr && !loaded->Words.empty()) ||
         !SplitTypedEntries(ListKind::WordsToIgnore, TypedOf(ListKind::WordsToIgnore)).empty();
}

void Workspace::CompareWith(ChangedBy by, std::optional<ComparedWith> compared) {
  if (compared == compared_) return;
  compared_ = std::move(compared);
  Tell({}, by);
}

Workspace::State Workspace::Keep() const {
  return {settings_, lists_, countOnly_, together_, compared_};
}

void Workspace::PutBack(ChangedBy by, State state) {
  lists_ = std::move(state.Lists);
  countOnly_ = std::move(state.CountOnly);
  Change(by, state.Chosen);
  // Behind the settings, whose folder may be another one.
  if (state.Together == together_ && state.Compared == compared_) return;
  together_ = std::move(state.Together);
  compared_ = std::move(state.Compared);
  Tell({}, by);
}

RunRequest Workspace::RequestOfNow() const {
  RunRequest request = RunRequestOf(settings_);
  if (settings_.SourceKind == TextSource::Folder) request.Paths = together_;
  request.Lists =
      MakeWordFilterSpec(LoadedOf(ListKind::WordsToIgnore), TypedOf(ListKind::WordsToIgnore),
                         settings_.PatternMatchingInWordsToIgnoreFile, LoadedOf(ListKind::CountOnly),
                         TypedOf(ListKind::CountOnly), settings_.Words);
  if (!compared_) return request;
  const std::string path = TrimmedPath(compared_->Path);
  return path.empty() ? request : ComparisonOf(std::move(request), {{path}}, compared_->How);
}

}  // namespace korv
