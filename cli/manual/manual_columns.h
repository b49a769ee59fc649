#pragma once

#include <span>
#include <string>
#include <string_view>

#include "report/columns/column.h"

namespace korv {

/// `page` with its line `.\" COLUMNS` replaced by the names of the columns and what they mean, in the
/// language of man(7). A page without that line stays as it is.
std::string WithColumns(std::string_view page, std::span<const Column* const> columns);

}  // namespace korv
