#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/yielder.h"

namespace korv {

/// The arguments after the program's name, as texts that PathFromText() takes.
std::vector<std::string> ProgramArguments(int argc, char** argv);

/// Where the running program is; `argv0` where the system cannot tell.
std::filesystem::path ExecutablePath(const char* argv0);

/// Standard output and error take bytes as they are and text as UTF-8.
void PrepareStandardStreams();

bool StandardErrorIsTerminal();

/// Standard input. A stop requested of `yielder`, which must outlive it, is its end.
std::unique_ptr<InputFile> OpenStandardInput(const Yielder& yielder);

}  // namespace korv
