#pragma once

#include <algorithm>
#include <cstddef>

#include "base/yielder.h"

namespace korv {

/// Does a long loop in pieces: calls work(begin, end) for the parts of [0, n) in order, and looks between
/// them whether a stop is asked for. A piece is short enough for a stop to be seen within milliseconds where
/// a step takes nanoseconds. Returns false when stopped, with the rest undone.
template <typename Work>
bool InPieces(size_t n, const Yielder& yielder, const Work& work) {
  constexpr size_t kPiece = size_t{1} << 16;
  for (size_t begin = 0; begin < n; begin += kPiece) {
    if (yielder.Stopped()) return false;
    work(begin, std::min(n, begin + kPiece));
  }
  return !yielder.Stopped();
}

}  // namespace korv
