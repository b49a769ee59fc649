#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "base/yielder.h"
#include "platform/files.h"

namespace korv {

/// The arguments after the program's name, as texts that PathFromText() takes.
std::vector<std::string> ProgramArguments(int argc, char** argv);

/// Whether shells put the names of files in place of "*" and "?" before a program sees its arguments.
bool ShellExpandsPatterns();

/// Where the running program is; `argv0` where the system cannot tell.
std::filesystem::path ExecutablePath(const char* argv0);

/// While it lives, standard output and error take bytes as they are and text as UTF-8. A terminal is as it
/// was afterwards. One object at a time.
class StandardStreams {
 public:
  StandardStreams();
  ~StandardStreams();
  StandardStreams(const StandardStreams&) = delete;
  StandardStreams& operator=(const StandardStreams&) = delete;
};

bool StandardErrorIsTerminal();

/// How many columns the terminal has that standard output leads to: as the variable COLUMNS says, else as the
/// terminal does. 0 where it leads to none, or where nobody knows.
size_t OutputColumns();

/// Ends the program at once, without destructors; temporary files are removed where the system allows it.
/// Asks for no memory.
[[noreturn]] void EndProcess(int status) noexcept;

/// For a program with windows: standard output and error lead to the terminal that it was started from, where
/// they lead nowhere else. Nothing happens where there is no terminal.
void AnswerInTheTerminal();

/// Standard input: bytes as they are; what is typed at a terminal as the system's encoding has it, on Windows
/// UTF-8. A stop requested of `yielder`, which must outlive it, is its end.
std::unique_ptr<InputFile> OpenStandardInput(const Yielder& yielder);

/// A path that leads to the file that standard input reads, for FileSystem::SameFile(); empty where the
/// system has no such path.
std::filesystem::path StandardInputPath();

}  // namespace korv
