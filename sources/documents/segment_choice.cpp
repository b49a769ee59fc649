#include "sources/documents/segment_choice.h"

#include <algorithm>

#include "engine/text/unicode.h"

namespace korv {

namespace {

std::string Plain(std::string_view language) {
  std::string plain = LowerText(language);
  std::ranges::replace(plain, '_', '-');
  return plain;
}

}  // namespace

SegmentChoice::SegmentChoice(std::string_view choice) : choice_(Plain(choice)) {
  if (choice_.empty()) choice_ = "source";
}

bool SegmentChoice::WantsSource(std::string_view language) const {
  return choice_ == "source" || IsOf(language);
}

bool SegmentChoice::WantsTarget(std::string_view language) const {
  return choice_ == "target" || IsOf(language);
}

bool SegmentChoice::IsOf(std::string_view language) const {
  return choice_ != "source" && choice_ != "target" && IsLanguage(language, choice_);
}

bool IsLanguage(std::string_view language, std::string_view chosen) {
  const std::string whole = Plain(language);
  const std::string part = Plain(chosen);
  return !part.empty() && whole.starts_with(part) &&
         (whole.size() == part.size() || whole[part.size()] == '-');
}

}  // namespace korv
