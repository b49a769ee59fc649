#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace korv {

/// A value, or the reason why there is none. For failures that a caller foresees and handles;
/// what nobody foresees is thrown. (The standard library's own type of this kind needs C++23.)
///
///   Expected<int, FileFault> r = Parse(text);
///   if (!r) return Report(r.Error());
///   Use(*r);
template <typename T, typename E>
class Expected {
 public:
  Expected(T value) : state_(std::in_place_index<0>, std::move(value)) {}
  Expected(E error) : state_(std::in_place_index<1>, std::move(error)) {}

  bool HasValue() const { return state_.index() == 0; }
  explicit operator bool() const { return HasValue(); }

  T& operator*() { return std::get<0>(state_); }
  const T& operator*() const { return std::get<0>(state_); }
  T* operator->() { return &std::get<0>(state_); }
  const T* operator->() const { return &std::get<0>(state_); }

  /// Only where there is no value.
  const E& Error() const { return std::get<1>(state_); }

 private:
  std::variant<T, E> state_;
};

}  // namespace korv
