#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "app/settings/schema.h"
#include "base/expected.h"
#include "platform/files.h"
#include "platform/messages.h"

namespace korv {

/// The results of reading a settings file.
inline constexpr int kRestored = 0;
inline constexpr int kInvalidIndex = 1;   ///< A value out of its control's range.
inline constexpr int kCannotRestore = 3;  ///< Anything else that made reading impossible.

/// A longer file is no settings file and is not read.
inline constexpr uint64_t kMostStateBytes = uint64_t{16} * 1024 * 1024;

struct RestoreOutcome {
  int Result = kRestored;
  /// The file ended early. The user has been told and asked; Result is kRestored.
  bool EndedEarly = false;
  std::string ErrorText;  ///< Only with kInvalidIndex ("Invalid data") and kCannotRestore.

  bool Complete() const { return Result == kRestored && !EndedEarly; }
};

/// Reads and writes state and settings files: one value a line, texts in double quotes, UTF-8, CR LF; the
/// place of a value alone gives its meaning (see SettingRow).
class SavedState {
 public:
  /// `stateFile` is what an empty path stands for. Its folder is made when it is missing.
  SavedState(FileSystem& files, Messages& messages, std::filesystem::path stateFile)
      : files_(files), messages_(messages), stateFile_(std::move(stateFile)) {}

  /// Replaces the file in one step. Empty on success, else "Error when attempting to save state: " and why;
  /// the old file is then as it was. Texts with a double quote or a line break cannot be saved.
  std::string SaveState(const std::filesystem::path& path, const Settings& settings);

  /// Puts each field into `settings` as it is read, so that the fields before a fault are applied and those
  /// after it are as they were. No value leaves its range whatever the file holds.
  RestoreOutcome RestoreSavedState(const std::filesystem::path& path, Settings& settings);

  const std::filesystem::path& StateFile() const { return stateFile_; }

 private:
  const std::filesystem::path& PathOf(const std::filesystem::path& path) const {
    return path.empty() ? stateFile_ : path;
  }
  void HandleEarlyEnd(Settings& settings);

  FileSystem& files_;
  Messages& messages_;
  std::filesystem::path stateFile_;
};

/// Whether the file holds settings from its first to its last value, or nothing at all.
bool IsSettingsFile(FileSystem& files, const std::filesystem::path& path);

struct StateError {
  std::string Description;
};
/// The bytes of a settings file: the values of the rows with places in the order of these; then a line
/// "name=value" for each other row whose value is not its default.
Expected<std::string, StateError> StateBytes(const Settings& settings,
                                             std::span<const SettingRow> rows = Schema());
/// The reading of them, without messages. Names that no row has are passed over.
RestoreOutcome ReadStateBytes(std::string_view bytes, Settings& settings,
                              std::span<const SettingRow> rows = Schema());

/// What is shown of a load that failed: "Invalid combo box index." or the longer message with the error.
std::string LoadFailureText(const RestoreOutcome& outcome);

/// Whether to load the word-list file that restored settings select.
bool AskToLoadWordFile(const std::string& path, Messages& messages);

}  // namespace korv
