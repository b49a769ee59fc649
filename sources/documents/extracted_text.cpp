#include "sources/documents/extracted_text.h"

#include <algorithm>

namespace korv {

namespace {

constexpr std::string_view kWhite = " \t\r\n";

}  // namespace

void CollapsedText::Run(std::string_view text) {
  while (!text.empty()) {
    const size_t begin = std::min(text.find_first_not_of(kWhite), text.size());
    if (begin > 0) Blank();
    text.remove_prefix(begin);
    if (text.empty()) return;
    const size_t end = std::min(text.find_first_of(kWhite), text.size());
    if (blank_) text_ += ' ';
    blank_ = false;
    onLine_ = true;
    text_.append(text, 0, end);
    text.remove_prefix(end);
  }
}

void CollapsedText::EndLine() {
  if (onLine_) text_ += '\n';
  onLine_ = false;
  blank_ = false;
}

void ExtractedText::Mark() {
  const uint32_t before = marks_.empty() ? 0 : marks_.back().Number;
  // The beginning of the text ends no phrase.
  endsPhrase_ = endsPhrase_ && !text_.empty();
  if (number_ != before || endsPhrase_) marks_.push_back({text_.size(), number_, endsPhrase_});
  endsPhrase_ = false;
}

void ExtractedText::Line(std::string_view line) {
  if (line.find_first_not_of(kWhite) == std::string_view::npos) return;
  Mark();
  text_ += line;
  text_ += '\n';
}

void ExtractedText::Lines(std::string_view lines) {
  while (!lines.empty()) {
    const size_t end = std::min(lines.find('\n'), lines.size());
    Line(lines.substr(0, end));
    lines.remove_prefix(std::min(end + 1, lines.size()));
  }
}

}  // namespace korv
