#include "engine/corpus/line_index.h"

#include <algorithm>

namespace korv {

void LineIndex::AtLine(const LineAnchor& line, bool resumable) {
  if (line.StartsLine()) lineStart_ = line;
  if (!first_ && (!resumable || line.Token() - anchors_.back().Token() < kAnchorEvery)) return;
  if (!line.StartsLine() && anchors_.back().Line() != line.Line()) anchors_.push_back(lineStart_);
  anchors_.push_back(line);
  first_ = false;
}

const LineAnchor& LineIndex::Before(Place token) const {
  const auto after = std::upper_bound(anchors_.begin(), anchors_.end(), token,
                                      [](Place t, const LineAnchor& anchor) { return t < anchor.Token(); });
  return *(after - 1);
}

const LineAnchor& LineIndex::BeginOfText(const LineAnchor& anchor) const {
  const LineAnchor* begin = &anchor;
  while (begin->Line() != 1 || !begin->StartsLine()) --begin;
  return *begin;
}

const LineAnchor& LineIndex::LineOf(const LineAnchor& anchor) const {
  const LineAnchor* start = &anchor;
  while (!start->StartsLine()) --start;
  return *start;
}

}  // namespace korv
