#include "engine/corpus/line_index.h"

#include <algorithm>
#include <utility>

namespace korv {

namespace {

bool BeginsText(const LineAnchor& anchor) {
  return anchor.StartsLine() && anchor.Line() == 1;
}

/// Whether an anchor may come next behind another one.
bool Follows(const LineAnchor& before, const LineAnchor& anchor) {
  if (anchor.Token() < before.Token()) return false;
  if (BeginsText(anchor)) return true;
  return anchor.Offset() > before.Offset() &&
         (anchor.StartsLine() ? anchor.Line() > before.Line() : anchor.Line() == before.Line());
}

}  // namespace

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

bool LineIndex::Restore(std::vector<LineAnchor> anchors, GrowingArray<LineBegin> begins) {
  if (!anchors.empty() && (!BeginsText(anchors.front()) || anchors.front().Token() == Place{0})) return false;
  for (size_t i = 1; i < anchors.size(); ++i)
    if (!Follows(anchors[i - 1], anchors[i])) return false;
  for (size_t i = 0; i < begins.size(); ++i)
    if (begins[i].Line == 0 || (i > 0 && begins[i].Token <= begins[i - 1].Token)) return false;
  anchors_ = std::move(anchors);
  begins_ = std::move(begins);
  return true;
}

}  // namespace korv
