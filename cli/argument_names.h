#pragma once

#include <span>
#include <string>
#include <vector>

namespace korv {

/// An option as it may stand on the command line.
struct OptionName {
  std::string Long;      ///< Without "--"; never empty.
  std::string Short;     ///< One letter, or empty.
  std::string Value;     ///< What its value is called; empty where it takes none.
  bool Repeats = false;  ///< It may be given several times.
};

/// What is wrong with the names on a command line: one that is no option, with the one that was probably
/// meant, an option with a value that is given twice where it may not be or without it, or a value where none
/// belongs. Empty when nothing is.
std::string FaultInNames(std::span<const std::string> arguments, std::span<const OptionName> options);

}  // namespace korv
