#include "platform/random_name.h"

#include <cstdint>
#include <random>
#include <string_view>

namespace korv {

std::string RandomNamePart() {
  static constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz234567";
  std::random_device random;
  uint64_t bits = (static_cast<uint64_t>(random()) << 32) | random();
  std::string part;
  for (int k = 0; k < 8; ++k, bits >>= 5) part += kLetters[bits & 31];
  return part;
}

}  // namespace korv
