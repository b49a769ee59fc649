#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/run/comparison_choice.h"
#include "app/run/run_request.h"
#include "app/settings/schema.h"
#include "engine/source_path.h"
#include "wordlists/list_kind.h"
#include "wordlists/word_file_list.h"
#include "wordlists/word_list.h"

namespace korv {

/// Who has changed a setting: the user at a control, or the program, for one by loading a settings file.
enum class ChangedBy { User, Program };

/// What the source of a window is compared with.
struct ComparedWith {
  std::string Path{};  ///< A file or a folder, as typed; empty until one is named.
  ComparisonChoice How{};

  bool operator==(const ComparedWith&) const = default;
};

/// What a window works on: the settings, and the two lists of words with their files and what was loaded of
/// them. All changes are made here, and listeners are called after each.
///
/// Belongs to one thread.
class Workspace {
 public:
  /// `changed` holds the settings whose values differ from what they were; none where something else does.
  using Listener = std::function<void(const SettingSet& changed, ChangedBy by)>;

  explicit Workspace(Settings settings = SettingsAtStart());
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;

  /// For as long as this lives. They are called in the order in which they came, after the change is made,
  /// once for everything that it changed, and not where it changed nothing. A listener may change settings
  /// itself: everyone hears of that at once.
  void OnChange(Listener listener) { listeners_.push_back(std::move(listener)); }

  // ---- Settings

  const Settings& Current() const { return settings_; }
  void Change(ChangedBy by, const Settings& settings);
  /// Changes the settings by `edit`.
  void Change(ChangedBy by, const std::function<void(Settings&)>& edit);

  // ---- Lists of words

  const WordFileList& FilesOf(ListKind kind) const { return PartOf(kind).Files; }
  /// Changes the list of files by `edit`. Those of words to ignore are a setting.
  void ChangeFiles(ChangedBy by, ListKind kind, const std::function<void(WordFileList&)>& edit);

  /// What was loaded of a file; null for nothing.
  const WordList* LoadedOf(ListKind kind) const;
  void Load(ListKind kind, WordList list) { PartOf(kind).Loaded = std::move(list); }
  void Forget(ListKind kind) { PartOf(kind).Loaded.reset(); }

  /// The entries that are typed beside a file. Of the words to ignore they are a setting.
  const std::string& TypedOf(ListKind kind) const;
  void TypeCountOnly(std::string entries) { countOnly_ = std::move(entries); }

  /// Whether a word to ignore is in force.
  bool HasWordsToIgnore() const;

  // ---- Several sources

  /// Files and folders that are counted together in place of the folder of the settings; empty for none. No
  /// setting: nobody misses them after a restart.
  const std::vector<SourcePath>& Together() const { return together_; }
  /// Makes a folder source of them. Listeners are called if only they have changed, too, with no setting.
  /// Another folder among the settings, which a change of them brings, makes an end of them.
  void CountTogether(ChangedBy by, std::vector<SourcePath> paths);

  // ---- Comparing

  /// Without a value nothing is compared. No setting, like several sources.
  const std::optional<ComparedWith>& Compared() const { return compared_; }
  /// Listeners are called with no setting.
  void CompareWith(ChangedBy by, std::optional<ComparedWith> compared);

  // ---- All of it

  /// The files of a list, and what was loaded of the selected one.
  struct ListPart {
    WordFileList Files;
    std::optional<WordList> Loaded;
  };
  /// Everything that one works on, to be put back later.
  struct State;
  State Keep() const;
  /// Puts back what was kept.
  void PutBack(ChangedBy by, State state);

  // ---- Runs

  /// What a count that began now would be asked for, but for the text of a clipboard. That of a comparison
  /// as soon as there is a path to compare with, which may be that of a folder: nobody has looked.
  RunRequest RequestOfNow() const;

 private:
  ListPart& PartOf(ListKind kind) { return lists_[static_cast<size_t>(kind)]; }
  const ListPart& PartOf(ListKind kind) const { return lists_[static_cast<size_t>(kind)]; }
  void TakeFilesOfSettings();
  void Tell(const SettingSet& changed, ChangedBy by);

  Settings settings_;
  std::array<ListPart, 2> lists_{ListPart{WordFileList(ListKind::WordsToIgnore), {}},
                                 ListPart{WordFileList(ListKind::CountOnly), {}}};
  std::string countOnly_;
  std::vector<SourcePath> together_;
  std::optional<ComparedWith> compared_;
  std::vector<Listener> listeners_;
};

struct Workspace::State {
  Settings Chosen;
  std::array<ListPart, 2> Lists;  ///< By ListKind.
  std::string CountOnly;          ///< The typed entries.
  std::vector<SourcePath> Together{};
  std::optional<ComparedWith> Compared{};
};

}  // namespace korv
