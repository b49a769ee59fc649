#include "sources/scan/comment_stripper.h"

#include <span>

#include "sources/scan/find_marker.h"

namespace korv {

std::string CommentStripper::Strip(std::string_view line) {
  std::string kept;
  size_t at = 0;
  while (at < line.size() || comment_ != nullptr) {
    if (comment_ == nullptr) {
      comment_ = PairAt(line, at);
      if (comment_ == nullptr)
        kept += line[at++];
      else
        at += comment_->Start.size();
      continue;
    }
    kept += ' ';
    const std::string_view end = comment_->End;
    const size_t found = end.empty() ? std::string_view::npos : FindMarker(line, at, end);
    if (end.empty() || found != std::string_view::npos) comment_ = nullptr;
    if (found == std::string_view::npos) return kept;
    at = found + end.size();
  }
  return kept;
}

const MarkerPair* CommentStripper::PairAt(std::string_view line, size_t at) const {
  for (const MarkerPair& pair :
       std::span(markers_.Markers).first(static_cast<size_t>(markers_.intNumCommentMarkers)))
    if (MarkerStandsAt(line, at, pair.Start)) return &pair;
  return nullptr;
}

}  // namespace korv
