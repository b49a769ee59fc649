#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "sources/read/text_marks.h"

namespace korv {

/// The text that a page shows, and where it stands in the file. UTF-8; blank lines part blocks.
struct ShownText {
  std::string Text;
  std::vector<TextMark> Marks;
};

/// Puts together what a page shows. White space is collapsed to single blanks, as browsers do.
///
///   ShownTextBuilder text(page);
///   text.Run("One ", 3);
///   text.EndBlock();
class ShownTextBuilder {
 public:
  /// `source`: the page, UTF-8; it must outlive the builder.
  explicit ShownTextBuilder(std::string_view source) : source_(source) {}

  /// Text as it is shown but for white space. `at`: the byte of the source at which it begins; there it may
  /// have entities, and a byte order of its own.
  void Run(std::string_view text, size_t at);
  /// The same where line ends and blanks count.
  void RunAsItIs(std::string_view text, size_t at);
  /// A line ends, but no block.
  void Break();
  /// A paragraph, a heading, a cell ends or begins.
  void EndBlock();
  /// Bytes of the text so far.
  size_t Size() const { return shown_.Text.size(); }
  ShownText Take();

 private:
  void Add(std::string_view part, size_t at);
  void MarkAt(size_t at);
  size_t PastEntity(size_t at, std::string_view text) const;

  std::string_view source_;
  ShownText shown_;
  bool blank_ = false;  ///< A blank is due before what follows.
  bool onLine_ = false;
  bool inBlock_ = false;
  // The place in the source up to which lines and columns are counted.
  size_t counted_ = 0;
  uint32_t line_ = 1;
  uint32_t column_ = 1;
  size_t expected_ = SIZE_MAX;  ///< What is added next stands here if no mark is needed.
};

}  // namespace korv
