#pragma once

#include <cstdint>
#include <string>

#include "base/number_format.h"
#include "base/translation.h"

namespace korv {

/// `text`, which TrCount() gave for `number`, with the number in place of "%1".
inline std::string Counted(const char* text, uint64_t number, const NumberFormat& numbers) {
  return Fill(text, {numbers.Grouped(static_cast<int64_t>(number))});
}

}  // namespace korv
