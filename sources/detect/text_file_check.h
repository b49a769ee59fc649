#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "base/number_format.h"
#include "platform/files.h"
#include "platform/messages.h"
#include "sources/detect/classification.h"

namespace korv {

/// What IsTextFile works with, and what it remembers while the program runs.
struct TextFileCheck {
  FileSystem& Files;
  korv::Messages& Messages;
  const NumberFormat& Format;
  std::function<void()> ClearOutput;  ///< Empties the window's text box; may be empty itself.
  bool MacNoticeShown = false;
};

/// Opens a word-list file and tells whether it may be read; if not, the user has been told why. `silent`
/// keeps back the remarks about line ends, not the refusals. `askToContinue` turns the remark on a slow file
/// into a question. `opened.Facts.Code` is NotText for a file that is refused for its size too.
bool IsTextFile(TextFileCheck& check, const std::filesystem::path& path, bool silent, bool askToContinue,
                OpenedText& opened);

/// The message with which a counting run of a single file refuses it. `facts.Code` is no readable text;
/// `head` is the file's beginning and `size` its length in bytes.
Message SingleFileRefusal(const std::string& path, const TextFacts& facts, std::string_view head,
                          uint64_t size, const NumberFormat& format);

/// Why a folder run skips such a file: "is zero-length", "is not a text file" and so on. In English, as
/// tables name it too; given to Tr() where it is shown.
std::string_view SkipReason(TextFileCode code);

}  // namespace korv
