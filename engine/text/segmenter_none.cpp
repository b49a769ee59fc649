#include <stdexcept>

#include "engine/text/segmenter.h"

// In place of segmenter_icu.cpp where the program is built without the library.

namespace korv {

struct Segmenter::Iterator {};

Segmenter::Segmenter() = default;
Segmenter::~Segmenter() = default;

bool Segmenter::IsThere() {
  return false;
}

void Segmenter::Cut(std::string_view /*text*/, std::vector<Piece>& /*pieces*/) {
  throw std::logic_error("There is no library that finds words.");
}

}  // namespace korv
