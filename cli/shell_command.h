#pragma once

#include <span>
#include <string>
#include <string_view>

namespace korv {

/// A command line as a POSIX shell takes it.
std::string ShellCommand(std::string_view program, std::span<const std::string> arguments);

}  // namespace korv
