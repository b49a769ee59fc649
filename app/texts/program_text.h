#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "base/expected.h"
#include "platform/files.h"
#include "platform/program_text.h"

namespace korv {

/// Why the program texts could not be read; ends the program.
enum class ProgramTextFault {
  NothingRead,
  CannotOpen,
  NoMemoryForTexts,
  TooMuch,
  NotRecovered,
  EmptyFile,
  CannotRead,
  NoMemory,
  Duplicate,  ///< This one and those that follow have a line.
  TooLong,
  Missing,
};

struct ProgramTextError {
  ProgramTextFault Fault;
  int Line = 0;  ///< 1-based, where the fault has one.

  /// As it is shown.
  std::string Text() const;
};

inline constexpr uint64_t kMostProgramTextBytes = uint64_t{1024} * 1024;
inline constexpr size_t kMostProgramTextCharacters = 1024;

/// Texts by number from a file with one on each line: number, tab, text. "\n" in a text is a line break,
/// "~" alone no text; blank lines and lines that begin with "#" are skipped. Given out in the user's
/// language.
class ProgramTextFile final : public ProgramText {
 public:
  static Expected<ProgramTextFile, ProgramTextError> Load(FileSystem& files,
                                                          const std::filesystem::path& path);
  static Expected<ProgramTextFile, ProgramTextError> Parse(std::string_view bytes);

  std::string Get(int number) const override;

 private:
  std::map<int, std::string> texts_;
};

}  // namespace korv
