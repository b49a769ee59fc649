#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/expected.h"
#include "cli/option_rows.h"

namespace korv {

struct ManualFault {
  std::string Description;
};

/// The part of the manual page that tells the options, in the language of man(7): the line of each in --help,
/// and behind it what `notes` has for its name. In `notes` a line `.\" for NAME` stands before what belongs
/// to an option ("--sort") or to the title of a group; lines before the first one belong to nothing. Fails
/// where a name is none.
Expected<std::string, ManualFault> ManualOptions(std::span<const OptionRow> options, std::string_view notes);

/// `page` with its line `.\" OPTIONS` replaced by these. Fails where there is no such line.
Expected<std::string, ManualFault> ManualPage(std::string_view page, std::span<const OptionRow> options,
                                              std::string_view notes);

}  // namespace korv
