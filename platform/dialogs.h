#pragma once

#include <optional>
#include <string>

namespace korv {

/// What a file chooser is asked. `Filter` is a name and its pattern with a bar between them:
/// "Korv settings files (*.korv) | *.korv".
struct FileChoice {
  std::string Title;
  std::string Filter;
  std::string InitialPath;  ///< Offered first; a folder or a file, may be empty.
  /// When saving: added to a name that has no extension, before anything is asked about the file. Without its
  /// dot; may be empty.
  std::string Extension{};
  /// When saving: ask before an existing file is chosen. Off where the writer of the file asks.
  bool AsksBeforeReplacing = false;
};

/// The system's choosers. Paths are UTF-8 texts as the system shows them; empty when the user cancelled.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  virtual std::optional<std::string> ChooseFileToOpen(const FileChoice& choice) = 0;
  virtual std::optional<std::string> ChooseFileToSave(const FileChoice& choice) = 0;
  virtual std::optional<std::string> ChooseFolder(const std::string& title,
                                                  const std::string& initialPath) = 0;
};

}  // namespace korv
