#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>

namespace korv {

/// What is typed at a console, as UTF-8. Ctrl-Z at the beginning of a line ends it.
class TypedInput {
 public:
  /// Waits for what is typed next and fills up to all of `units` with it; 0 at the end.
  using ReadUnits = std::function<size_t(std::span<wchar_t> units)>;

  explicit TypedInput(ReadUnits read) : read_(std::move(read)) {}

  /// Fills up to all of `buffer` and returns the bytes; 0 only at the end.
  size_t Read(std::span<char> buffer);

 private:
  void ReadMore();
  void Take(std::wstring_view units);

  ReadUnits read_;
  std::string bytes_;    ///< Typed, and not yet handed on.
  wchar_t pending_ = 0;  ///< The first half of a character whose second half has not been read; or 0.
  bool atLineBegin_ = true;
  bool ended_ = false;
};

}  // namespace korv
