#include "sources/documents/shown_text.h"

#include <algorithm>
#include <utility>

#include "engine/text/unicode.h"

namespace korv {

namespace {

constexpr std::string_view kWhiteSpace = " \t\n\r\f";

bool IsEntityCharacter(char c) {
  return c == '#' || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

}  // namespace

/// Notes where in the file the text goes on, if that is not behind what came before.
void ShownTextBuilder::MarkAt(size_t at) {
  at = std::min(at, source_.size());
  if (at < counted_) {
    // Browsers move some text: what stands in a table but in no cell comes before it.
    const size_t end = at == 0 ? std::string_view::npos : source_.rfind('\n', at - 1);
    const size_t begin = end == std::string_view::npos ? 0 : end + 1;
    line_ -= static_cast<uint32_t>(std::count(source_.begin() + static_cast<std::ptrdiff_t>(begin),
                                              source_.begin() + static_cast<std::ptrdiff_t>(counted_), '\n'));
    counted_ = begin;
    column_ = 1;
  }
  for (; counted_ < at; ++counted_) {
    const auto byte = static_cast<unsigned char>(source_[counted_]);
    if (byte == '\n') {
      ++line_;
      column_ = 1;
    } else {
      column_ += (byte & 0xC0) != 0x80;
    }
  }
  shown_.Marks.push_back({shown_.Text.size(), line_, false, column_});
}

void ShownTextBuilder::Add(std::string_view part, size_t at) {
  if (!inBlock_ && !shown_.Text.empty()) shown_.Text += '\n';
  inBlock_ = true;
  const bool parted = blank_ && onLine_;
  if (parted) shown_.Text += ' ';
  if (at != expected_) MarkAt(at);
  blank_ = false;
  onLine_ = true;
  shown_.Text += part;
  expected_ = at + part.size();
}

/// Past what stands in the source for the first character of `text`; `at` where that is an entity is its "&".
size_t ShownTextBuilder::PastEntity(size_t at, std::string_view text) const {
  size_t length = 0;
  NextCharacter(text, length);
  if (at >= source_.size() || source_[at] != '&') return at + length;
  size_t end = at + 1;
  while (end < source_.size() && IsEntityCharacter(source_[end])) ++end;
  if (end < source_.size() && source_[end] == ';') ++end;
  const std::string_view entity = source_.substr(at, end - at);
  return text.starts_with(entity) ? at + length : end;
}

void ShownTextBuilder::Run(std::string_view text, size_t at) {
  for (size_t i = 0; i < text.size();) {
    if (kWhiteSpace.find(text[i]) != std::string_view::npos) {
      blank_ = true;
      at = PastEntity(at, text.substr(i++));
      // One line end of the source that has two bytes is one character of the text.
      if (at < source_.size() && source_[at] == '\n' && source_[at - 1] == '\r') ++at;
      continue;
    }
    // Up to the next white space, or to what is another text in the source.
    size_t end = i;
    while (end < text.size() && kWhiteSpace.find(text[end]) == std::string_view::npos &&
           at + (end - i) < source_.size() && source_[at + (end - i)] == text[end] && text[end] != '&')
      ++end;
    if (end > i) {
      Add(text.substr(i, end - i), at);
      at += end - i;
      i = end;
      continue;
    }
    NextCharacter(text, end);
    const size_t past = PastEntity(at, text.substr(i));
    Add(text.substr(i, end - i), at);
    at = past;
    i = end;
  }
}

void ShownTextBuilder::RunAsItIs(std::string_view text, size_t at) {
  for (size_t begin = 0; begin <= text.size();) {
    const size_t end = std::min(text.find('\n', begin), text.size());
    Run(text.substr(begin, end - begin), at);
    if (end == text.size()) return;
    Break();
    // Where the next line begins in the source.
    const size_t next = source_.find('\n', std::min(at, source_.size()));
    at = next == std::string_view::npos ? source_.size() : next + 1;
    begin = end + 1;
  }
}

void ShownTextBuilder::Break() {
  // A line without anything is seen as the end of a paragraph.
  if (!onLine_) inBlock_ = false;
  if (onLine_) shown_.Text += '\n';
  onLine_ = false;
  blank_ = false;
  expected_ = SIZE_MAX;
}

void ShownTextBuilder::EndBlock() {
  Break();
  inBlock_ = false;
}

ShownText ShownTextBuilder::Take() {
  Break();
  return std::move(shown_);
}

}  // namespace korv
