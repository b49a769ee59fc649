#include "sources/documents/odt_text.h"

#include <algorithm>
#include <utility>

namespace korv {

namespace {

constexpr std::array<std::string_view, 10> kPassedOver = {"text:tracked-changes",
                                                          "office:annotation",
                                                          "text:note-citation",
                                                          "office:forms",
                                                          "text:ruby-text",
                                                          "svg:title",
                                                          "svg:desc",
                                                          "draw:object",
                                                          "math:math",
                                                          "text:index-title-template"};

bool IsParagraph(std::string_view name) {
  return name == "text:p" || name == "text:h";
}

}  // namespace

void OdtText::BeginElement(const XmlElement& element, uint64_t /*line*/) {
  const std::string_view name = element.Name();
  if (bodyDepth_ == 0) {
    if (name == "office:text") bodyDepth_ = 1;
    hasBody_ = hasBody_ || bodyDepth_ == 1;
    return;
  }
  ++bodyDepth_;
  if (passedOver_ > 0 || std::ranges::find(kPassedOver, name) != kPassedOver.end()) {
    ++passedOver_;
    return;
  }
  if (IsParagraph(name)) paragraphs_.emplace_back();
  if (paragraphs_.empty()) return;
  if (name == "text:tab" || name == "text:s") paragraphs_.back().Blank();
  if (name == "text:line-break") paragraphs_.back().EndLine();
}

void OdtText::EndElement(std::string_view name) {
  if (bodyDepth_ == 0) return;
  --bodyDepth_;
  if (passedOver_ > 0)
    --passedOver_;
  else if (IsParagraph(name) && !paragraphs_.empty())
    EndParagraph();
}

void OdtText::Characters(std::string_view text, uint64_t /*line*/) {
  if (passedOver_ > 0 || paragraphs_.empty()) return;
  paragraphs_.back().Run(text);
  held_ += text.size();
}

void OdtText::EndParagraph() {
  std::string text = std::move(paragraphs_.back()).Take();
  paragraphs_.pop_back();
  if (!paragraphs_.empty()) {
    behind_.push_back(std::move(text));
    return;
  }
  text_.Lines(text);
  for (const std::string& inner : behind_) text_.Lines(inner);
  behind_.clear();
  held_ = 0;
}

}  // namespace korv
