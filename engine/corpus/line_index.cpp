#include "engine/corpus/line_index.h"

#include <algorithm>

namespace korv {

void LineIndex::AtLine(const LineAnchor& line, bool resumable) {
  if (line.StartsLine()) {
    lineStart_ = line;
    NoteBegin({line.Token(), line.Line()});
  }
  if (!first_ && (!resumable || line.Token() - anchors_.back().Token() < kAnchorEvery)) return;
  if (!line.StartsLine() && anchors_.back().Line() != line.Line()) anchors_.push_back(lineStart_);
  anchors_.push_back(line);
  first_ = false;
}

void LineIndex::NoteBegin(LineBegin begin) {
  // The line before had no token where this one begins with the same.
  if (begins_.size() > 0 && begins_.back().Token == begin.Token)
    begins_[begins_.size() - 1] = begin;
  else
    begins_.push_back(begin);
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

uint32_t LineIndex::LineNumber(Place token) const {
  const LineBegin* const after = std::upper_bound(
      begins_.begin(), begins_.end(), token, [](Place t, const LineBegin& begin) { return t < begin.Token; });
  return after == begins_.begin() ? 0 : (after - 1)->Line;
}

}  // namespace korv
