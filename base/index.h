#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace korv {

/// Indices of one kind are a type of their own, so that the index of a word cannot be taken for that of a
/// phrase: an enum class over uint32_t without enumerators, which costs what a bare number does.
///
///     enum class Place : uint32_t {};
///     template <>
///     inline constexpr bool kIsIndex<Place> = true;
///
/// Indices of a kind compare, count up and down, and move by a number of steps. ValueOf() is the bare number.
template <typename T>
inline constexpr bool kIsIndex = false;

template <typename T>
concept StrongIndex = std::is_enum_v<T> && kIsIndex<T>;

template <StrongIndex T>
constexpr uint32_t ValueOf(T index) {
  return static_cast<uint32_t>(index);
}
template <StrongIndex T>
constexpr T& operator++(T& index) {
  return index = T{ValueOf(index) + 1};
}
template <StrongIndex T>
constexpr T& operator--(T& index) {
  return index = T{ValueOf(index) - 1};
}
template <StrongIndex T>
constexpr T operator+(T index, uint32_t steps) {
  return T{ValueOf(index) + steps};
}
template <StrongIndex T>
constexpr T operator-(T index, uint32_t steps) {
  return T{ValueOf(index) - steps};
}
/// The steps from `from` to `to`, which must not come before it.
template <StrongIndex T>
constexpr uint32_t operator-(T to, T from) {
  return ValueOf(to) - ValueOf(from);
}

/// The indices from First to Last, both included; none where Last comes before First.
template <StrongIndex T>
class IndexRange {
 public:
  class Iterator {
   public:
    constexpr explicit Iterator(T at) : at_(at) {}
    constexpr T operator*() const { return at_; }
    constexpr Iterator& operator++() {
      ++at_;
      return *this;
    }
    constexpr bool operator==(const Iterator&) const = default;

   private:
    T at_;
  };

  constexpr IndexRange(T first, T last) : begin_(first), end_(last < first ? first : last + 1) {}
  // For range-based loops. NOLINTBEGIN(readability-identifier-naming)
  constexpr Iterator begin() const { return Iterator(begin_); }
  constexpr Iterator end() const { return Iterator(end_); }
  // NOLINTEND(readability-identifier-naming)

 private:
  T begin_;
  T end_;
};

}  // namespace korv
