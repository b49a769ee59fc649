#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/messages.h"
#include "sources/detect/classification.h"
#include "sources/read/text_reader.h"

namespace korv {

enum class EncodingChoice {
  Auto,  ///< As classified; text that nothing tells the encoding of and that looks like UTF-8 is asked about.
  Utf8,  ///< Every text file is read as UTF-8. Signatures are not asked.
  Ansi,  ///< Every text file is read as ANSI. Signatures are not asked.
};

/// Decides how text files are decoded, and remembers the answers: one per path while the program runs, and
/// one for all files of a folder run.
class EncodingChooser {
 public:
  explicit EncodingChooser(EncodingChoice choice = EncodingChoice::Auto) : choice_(choice) {}

  /// From here to EndFolderRun() one answer holds for every file.
  void BeginFolderRun();
  void EndFolderRun();

  /// How the text at `path`, classified as `facts`, is to be read. The plan may ask while the text is being
  /// read; chooser and messages must live until then.
  EncodingPlan PlanFor(const TextFacts& facts, const std::string& path, Messages& messages);

 private:
  bool ConfirmUtf8(const std::string& path, Messages& messages);

  EncodingChoice choice_;
  bool folderRun_ = false;
  std::optional<bool> folderAnswer_;
  std::map<std::string, bool> answers_;
};

}  // namespace korv
