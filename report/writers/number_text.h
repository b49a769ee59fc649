#pragma once

#include <string_view>

#include "report/columns/cell.h"

namespace korv {

/// Numbers as programs read them: whole ones plain, real ones with up to nine significant digits in the C
/// locale's way.
class NumberText {
 public:
  /// Empty for what is no number. Valid until the next call.
  std::string_view Of(const Cell& cell);

 private:
  char text_[40];
};

}  // namespace korv
