#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "base/zeroed_array.h"

namespace korv {

/// Which entries of a phrase table were found redundant. Any thread may set flags; looks come after.
class RedundantFlags {
 public:
  explicit RedundantFlags(size_t entries) : flags_(entries) {}

  void Set(uint32_t entry) { std::atomic_ref(flags_[entry]).store(1, std::memory_order_relaxed); }
  bool IsSet(size_t entry) const { return flags_[entry] != 0; }

 private:
  ZeroedArray<uint8_t> flags_;
};

}  // namespace korv
