#include "sources/documents/element_text.h"

#include <algorithm>
#include <array>
#include <limits>

#include "sources/folders/file_selection.h"

namespace korv {

namespace {

/// Of TEI and HTML: what stands within a line, even within a word.
constexpr std::array<std::string_view, 52> kInLine = {
    "a",       "abbr",      "add",      "am",       "app",     "b",     "c",        "choice",   "corr",
    "damage",  "date",      "del",      "distinct", "em",      "emph",  "ex",       "expan",    "font",
    "foreign", "g",         "geogName", "gap",      "gloss",   "hi",    "i",        "lem",      "m",
    "measure", "mentioned", "name",     "num",      "orgName", "orig",  "pc",       "persName", "placeName",
    "ref",     "reg",       "rs",       "seg",      "sic",     "small", "soCalled", "span",     "strong",
    "sub",     "sup",       "supplied", "surname",  "term",    "title", "unclear"};
/// What separates words, but no lines.
constexpr std::array<std::string_view, 7> kSeparate = {"w", "lb", "pb", "cb", "milestone", "br", "tab"};

template <size_t N>
bool IsOneOf(const std::array<std::string_view, N>& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

}  // namespace

ElementText::ElementText(ExtractedText& text, const DocumentChoice& choice)
    : text_(text), only_(NamesIn(choice.OnlyElements)) {
  if (choice.SkippedElements != "none")
    skipped_ = NamesIn(choice.SkippedElements.empty() ? kSkippedElements : choice.SkippedElements);
}

ElementText::Names ElementText::NamesIn(std::string_view list) {
  const std::vector<std::string> names = SplitPatterns(list);
  return {names.begin(), names.end()};
}

void ElementText::BeginElement(const XmlElement& element, uint64_t /*line*/) {
  const std::string_view name = LocalName(element.Name());
  ++depth_;
  if (inSkipped_ > 0 || skipped_.contains(name)) {
    ++inSkipped_;
    return;
  }
  if (inOnly_ > 0 || only_.contains(name)) ++inOnly_;
  if (IsOneOf(kSeparate, name))
    line_.Blank();
  else if (!IsOneOf(kInLine, name))
    EndLine();
}

void ElementText::EndElement(std::string_view name) {
  --depth_;
  if (inSkipped_ > 0) {
    --inSkipped_;
    return;
  }
  const std::string_view local = LocalName(name);
  const bool leaves = inOnly_ == 1;
  if (inOnly_ > 0) --inOnly_;
  if (IsOneOf(kSeparate, local)) line_.Blank();
  // What follows a wanted element is no part of its text, and behind the root nothing follows.
  if (leaves || depth_ == 0 || (!IsOneOf(kSeparate, local) && !IsOneOf(kInLine, local))) EndLine();
}

void ElementText::Characters(std::string_view text, uint64_t line) {
  if (inSkipped_ > 0 || (!only_.empty() && inOnly_ == 0)) return;
  const bool begins = !line_.OnLine();
  line_.Run(text);
  // The text of a line may begin behind line ends of the file, each of which is told by itself.
  if (begins && line_.OnLine())
    lineNumber_ = static_cast<uint32_t>(std::min<uint64_t>(line, std::numeric_limits<uint32_t>::max()));
}

void ElementText::EndLine() {
  if (!line_.OnLine()) return;
  line_.EndLine();
  text_.BeginPlace(lineNumber_);
  text_.Lines(line_.Text());
  line_ = CollapsedText();
}

}  // namespace korv
