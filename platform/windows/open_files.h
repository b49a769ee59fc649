#pragma once

#include <filesystem>
#include <memory>

#include "platform/files.h"

namespace korv {

// Both take a FullPath().

Expected<std::unique_ptr<InputFile>, FileError> OpenInput(const std::filesystem::path& full);
Expected<std::unique_ptr<OutputFile>, FileError> OpenOutput(const std::filesystem::path& full);

}  // namespace korv
