#include "sources/documents/docx_shown_text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/line_ends.h"

namespace korv {

namespace {

constexpr std::array<std::string_view, 4> kPassedOver = {"mc:Fallback", "w:moveFrom", "w:del", "w:instrText"};

/// Whether a note is only the line between text and notes.
bool IsSeparator(const XmlElement& element) {
  if (element.Name() != "w:footnote" && element.Name() != "w:endnote") return false;
  const auto type = element.Attribute("w:type");
  return type && type != "normal";
}

}  // namespace

void DocxShownText::BeginElement(const XmlElement& element, uint64_t /*line*/) {
  const std::string_view name = element.Name();
  if (passedOver_ > 0 || std::ranges::find(kPassedOver, name) != kPassedOver.end() || IsSeparator(element)) {
    ++passedOver_;
  } else if (name == "w:p") {
    open_.emplace_back();
  } else if (name == "w:t") {
    inRun_ = true;
  } else if (name == "w:tab" || name == "w:ptab" || name == "w:br" || name == "w:cr") {
    // A line within a paragraph goes on its sentence.
    if (!open_.empty()) open_.back().Tab = !open_.back().Text.empty();
  } else if (name == "w:noBreakHyphen") {
    Add("-");
  }
}

void DocxShownText::EndElement(std::string_view name) {
  if (passedOver_ > 0) {
    --passedOver_;
  } else if (name == "w:p") {
    EndParagraph();
  } else if (name == "w:t") {
    inRun_ = false;
  }
}

void DocxShownText::Characters(std::string_view text, uint64_t /*line*/) {
  if (passedOver_ == 0 && inRun_) Add(text);
}

void DocxShownText::Add(std::string_view text) {
  if (open_.empty() || text.empty()) return;
  Paragraph& paragraph = open_.back();
  if (paragraph.Tab) paragraph.Text += ' ';
  paragraph.Tab = false;
  paragraph.Text += text;
  boxes_ += text.size() + 1;
}

void DocxShownText::EndParagraph() {
  if (open_.empty()) return;
  Paragraph done = std::move(open_.back());
  open_.pop_back();
  std::string& to = open_.empty() ? text_ : open_.back().Boxes;
  if (!done.Text.empty()) to.append(done.Text).append(kCrLf);
  to += done.Boxes;
  if (open_.empty()) boxes_ = 0;
}

}  // namespace korv
