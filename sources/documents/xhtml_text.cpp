#include "sources/documents/xhtml_text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace korv {

namespace {

/// Elements that stand in a line.
constexpr std::array<std::string_view, 23> kInLine = {
    "a",    "abbr", "acronym", "b",   "bdi",  "bdo", "big", "cite",  "code", "del",    "dfn", "em",
    "font", "i",    "ins",     "kbd", "mark", "q",   "s",   "small", "span", "strong", "sub"};
constexpr std::array<std::string_view, 11> kInLineToo = {"label", "ruby", "rb", "rt",  "strike", "sup",
                                                         "time",  "tt",   "u",  "var", "wbr"};
constexpr std::array<std::string_view, 14> kPassedOver = {
    "head",   "iframe", "math", "noscript", "object",   "rp",    "script",
    "select", "style",  "svg",  "template", "textarea", "title", "audio"};
/// They show something, but no text.
constexpr std::array<std::string_view, 3> kPictures = {"img", "image", "input"};

template <size_t N>
bool IsOneOf(const std::array<std::string_view, N>& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

bool PartsLines(std::string_view name) {
  return !IsOneOf(kInLine, name) && !IsOneOf(kInLineToo, name) && !IsOneOf(kPictures, name);
}

}  // namespace

void XhtmlText::BeginElement(const XmlElement& element, uint64_t /*line*/) {
  const std::string_view name = LocalName(element.Name());
  if (passedOver_ > 0 || IsOneOf(kPassedOver, name) || element.Attribute("hidden")) {
    ++passedOver_;
    return;
  }
  if (PartsLines(name)) lines_.EndLine();
}

void XhtmlText::EndElement(std::string_view name) {
  if (passedOver_ > 0) {
    --passedOver_;
    return;
  }
  if (PartsLines(LocalName(name))) lines_.EndLine();
}

void XhtmlText::Characters(std::string_view text, uint64_t /*line*/) {
  if (passedOver_ == 0) lines_.Run(text);
}

void XhtmlText::Finish() {
  lines_.EndLine();
  text_.Lines(lines_.Text());
}

}  // namespace korv
