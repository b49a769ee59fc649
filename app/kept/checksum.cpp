#include "app/kept/checksum.h"

#include <zlib.h>

namespace korv {

void Checksum::Add(std::string_view bytes) {
  value_ = static_cast<uint32_t>(
      crc32_z(value_, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()));
}

}  // namespace korv
