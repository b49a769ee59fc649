#include "sources/scan/line_cleaner.h"

#include <algorithm>

#include "engine/text/unicode.h"
#include "sources/scan/markup.h"

namespace korv {

namespace {

/// How much of `text` comes before what double hyphens may begin with: hyphens at its end, which may belong
/// to a pair or to "-->", and "<!" before them.
size_t SizeBeforeHyphens(std::string_view text) {
  const size_t end = text.find_last_not_of('-') + 1;
  const size_t hyphens = text.size() - end;
  // Pairs are counted from the first hyphen on, so that only the last pair depends on what follows.
  if (hyphens > 2) return text.size() - (hyphens % 2 == 0 ? 2 : 1);
  const std::string_view before = text.substr(0, end);
  if (before.ends_with("<!")) return end - 2;
  return hyphens == 0 && before.ends_with('<') ? end - 1 : end;
}

}  // namespace

std::string_view LineCleaner::CleanPart(std::string_view part, bool startsLine, bool endsLine) {
  if (startsLine) {
    Reset();
    charactersBefore_ = 0;
  }
  std::string_view text = part;
  if (!heldBack_.empty()) {
    joined_ = heldBack_;
    joined_ += part;
    heldBack_.clear();
    text = joined_;
  }
  if (!endsLine) {
    const size_t decided = DecidedSize(text);
    heldBack_ = text.substr(decided);
    text = text.substr(0, decided);
  }
  const size_t before = charactersBefore_;
  if (before < 2) charactersBefore_ = endsLine ? 2 : std::min<size_t>(2, before + CharacterCount(text));
  return CleanDecided(text, before);
}

std::string_view LineCleaner::Replace(std::string_view text, size_t charactersBefore, bool hasHyphens) {
  cleaned_.assign(text);
  if (hasHyphens) ReplaceDoubleHyphensInPlace(cleaned_, charactersBefore);
  if (hasEntities_) ReplaceNamedEntities(cleaned_, inEntity_);
  return cleaned_;
}

/// How much of `text`, which the line goes on behind, can be cleaned now.
size_t LineCleaner::DecidedSize(std::string_view text) const {
  const size_t decided = SizeBeforeHyphens(text);
  if (!hasEntities_) return decided;
  return std::min(decided, SizeBeforeEntity(text, inEntity_));
}

void LineCleaner::Reset() {
  heldBack_.clear();
  inEntity_ = false;
  charactersBefore_ = 2;
}

}  // namespace korv
