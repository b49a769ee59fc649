#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/option_rows.h"

namespace korv {

/// What may stand behind an option.
struct OptionValues {
  enum class Kind { None, Files, Words, Any };
  Kind Of = Kind::None;
  std::vector<std::string> Words;  ///< All that make sense, or all that have names. Only of Words.
};

OptionValues ValuesOf(const OptionRow& option);

/// Scripts with which a shell completes the options of korv-count and their values: what bash-completion, zsh
/// and fish read.
std::string BashCompletions(std::span<const OptionRow> options);
std::string ZshCompletions(std::span<const OptionRow> options);
std::string FishCompletions(std::span<const OptionRow> options);

}  // namespace korv
