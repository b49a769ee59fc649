#pragma once

#include <span>
#include <string>
#include <vector>

namespace korv {

/// What the desktop program was started with.
struct DesktopArguments {
  enum class Kind {
    Open,   ///< Show the windows and open Paths, if there are any.
    Tell,   ///< Print Text on standard output and end.
    Wrong,  ///< Print Text on standard error and end with status 2.
  };
  Kind What = Kind::Open;
  std::vector<std::string> Paths;  ///< Absolute, as texts that PathFromText() takes.
  std::string Text;                ///< With LF line ends, the last one included.
};

/// Reads the arguments that follow the program's name. "--" ends the options. `version` is the program's.
/// Relative paths are those of the current folder; whether they exist is not asked.
DesktopArguments ReadDesktopArguments(std::span<const std::string> arguments, const std::string& version);

}  // namespace korv
