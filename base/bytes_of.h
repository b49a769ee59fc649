#pragma once

#include <cstdint>

namespace korv {

/// The memory that an array holds, in bytes, used or not; not what its elements hold outside it.
template <typename Array>
uint64_t BytesOf(const Array& array) {
  return uint64_t{array.capacity()} * sizeof(*array.data());
}

}  // namespace korv
