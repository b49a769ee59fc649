#pragma once

#include <cstddef>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "base/clock.h"
#include "platform/code_page.h"
#include "platform/console/console_yielder.h"
#include "platform/files.h"

namespace korv {

/// What korv-count touches.
struct CountEnvironment {
  FileSystem& Files;
  ConsoleYielder& Yielder;
  const korv::Clock& Clock;
  InputFile& StandardInput;
  std::ostream& Out;
  std::ostream& Err;
  bool ErrIsTerminal = false;
  std::filesystem::path ProgramFolder;  ///< With the program texts and the common-words files.
  CodePage* Encoding = nullptr;         ///< Of output files; null for UTF-8.
  std::filesystem::path InputPath{};  ///< A name under which standard input can be compared; empty for none.
  size_t OutColumns = 0;              ///< Of the terminal that Out is; 0 where it is none.
  bool ExpandsPatterns = false;       ///< No shell has put names in place of "*" and "?" in the arguments.
};

/// The whole program after its system has been set up: the exit status.
int KorvCount(const std::vector<std::string>& arguments, const CountEnvironment& environment);

}  // namespace korv
