#pragma once

#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

namespace korv {

/// Leaves elements that are made without a value as the memory has them.
template <typename T>
class RawAllocator : public std::allocator<T> {
  static_assert(std::is_trivially_default_constructible_v<T>);

 public:
  template <typename U>
  struct rebind {  // NOLINT(readability-identifier-naming): the name that containers ask for
    using other = RawAllocator<U>;
  };

  template <typename U, typename... Args>
  void construct(U* at, Args&&... args) {  // NOLINT(readability-identifier-naming)
    if constexpr (sizeof...(Args) == 0)
      ::new (static_cast<void*>(at)) U;
    else
      ::new (static_cast<void*>(at)) U(std::forward<Args>(args)...);
  }
};

/// A vector whose resize() does not write the new elements: for large arrays that are filled afterwards, in
/// steps between which a stop can be seen.
template <typename T>
using RawVector = std::vector<T, RawAllocator<T>>;

}  // namespace korv
