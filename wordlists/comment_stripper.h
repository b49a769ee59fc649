#pragma once

#include <string>
#include <string_view>

namespace korv {

/// Takes C comments out of lines, one line after the other.
class CommentStripper {
 public:
  /// The line with every comment replaced by one blank. A comment may go on from the line before, and into
  /// the next.
  std::string Strip(std::string_view line);

 private:
  bool withinComment_ = false;
};

}  // namespace korv
