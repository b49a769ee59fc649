#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korv {

/// Cleans lines before words are cut from them: double hyphens become blanks and named entities the
/// characters they stand for (see sources/scan/markup.h). A line may come in parts that end anywhere between
/// two characters; the result is that of the whole line.
class LineCleaner {
 public:
  /// `hasEntities`: the text is mark-up, in which named entities stand for characters.
  explicit LineCleaner(bool hasEntities) : hasEntities_(hasEntities) {}

  /// The next part of the text, cleaned, as far as it does not depend on what follows: where more of the line
  /// follows (`endsLine` is false), a few bytes at its end may wait for the next call. Returns `part` itself
  /// where there is nothing to clean, else a buffer; both are valid until the next call. Linear.
  std::string_view Clean(std::string_view part, bool startsLine, bool endsLine) {
    if (!startsLine || !endsLine) return CleanPart(part, startsLine, endsLine);
    inEntity_ = false;
    return CleanDecided(part, 0);
  }
  /// Whether a part of the line waits for the next call.
  bool HoldsBack() const { return !heldBack_.empty(); }
  /// Forgets the line.
  void Reset();

 private:
  /// `text` is nearly always clean. So many characters of the line come before it.
  std::string_view CleanDecided(std::string_view text, size_t charactersBefore) {
    const bool hasHyphens = text.find("--") != std::string_view::npos;
    const bool hasEntities = hasEntities_ && (inEntity_ || text.find('&') != std::string_view::npos);
    return hasHyphens || hasEntities ? Replace(text, charactersBefore, hasHyphens) : text;
  }
  std::string_view CleanPart(std::string_view part, bool startsLine, bool endsLine);
  std::string_view Replace(std::string_view text, size_t charactersBefore, bool hasHyphens);
  size_t DecidedSize(std::string_view text) const;

  bool hasEntities_;
  std::string joined_;  ///< What was held back, and the part behind it.
  std::string cleaned_;
  std::string heldBack_;         ///< The end of the text so far, as it came; a few bytes.
  size_t charactersBefore_ = 2;  ///< Characters of the line before the next part; 2 stands for any more.
  bool inEntity_ = false;        ///< An "&" of this line waits for its ";", which named entities go by.
};

}  // namespace korv
