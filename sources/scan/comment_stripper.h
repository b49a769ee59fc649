#pragma once

#include <string>
#include <string_view>

#include "sources/detect/comment_markers.h"

namespace korv {

/// Takes the comments of programs out of lines that are wanted whole, one line after the other. The regions
/// are those that LineScanner skips in such a text.
class CommentStripper {
 public:
  CommentStripper() { SetCommentMarkers(markers_, MarkupLanguage::C); }

  /// The line with every comment replaced by one blank. A comment may go on from the line before, and into
  /// the next.
  std::string Strip(std::string_view line);

 private:
  const MarkerPair* PairAt(std::string_view line, size_t at) const;

  CommentMarkers markers_;
  const MarkerPair* comment_ = nullptr;  ///< Of the comment that goes on; null outside.
};

}  // namespace korv
