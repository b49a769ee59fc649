#include "sources/documents/xml_shown_text.h"

#include <algorithm>
#include <array>

namespace korv {

namespace {

constexpr std::string_view kWhiteSpace = " \t\n\r";
constexpr std::array<std::string_view, 3> kPassedOver = {"teiHeader", "script", "style"};
constexpr std::array<std::string_view, 2> kLineEnds = {"lb", "br"};
constexpr std::array<std::string_view, 3> kNotes = {"note", "footnote", "fn"};

template <size_t N>
bool IsOneOf(const std::array<std::string_view, N>& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

bool IsWhite(char c) {
  return kWhiteSpace.find(c) != std::string_view::npos;
}

}  // namespace

void XmlShownText::AddEdge(bool isBlock) {
  edges_.push_back({text_.size(), isBlock ? kBlockEnd : open_.back()});
}

bool XmlShownText::PartsBlocks(const Edge& edge) const {
  if (edge.Parent == kLineBreak || edge.Parent == kBlockEnd) return edge.Parent == kBlockEnd;
  uint32_t element = edge.Parent;
  while (element != 0 && !elements_[element].HasText && elements_[element].Children == 1)
    element = elements_[element].Parent;
  return !elements_[element].HasText;
}

void XmlShownText::BeginElement(const XmlElement& element, uint64_t /*line*/) {
  const std::string_view name = LocalName(element.Name());
  if (passedOver_ > 0 || IsOneOf(kPassedOver, name)) {
    if (passedOver_++ == 0) AddEdge(false);
    return;
  }
  if (IsOneOf(kLineEnds, name)) {
    if (element.Attribute("break") != "no") edges_.push_back({text_.size(), kLineBreak});
  } else {
    AddEdge(IsOneOf(kNotes, name));
    ++elements_[open_.back()].Children;
  }
  elements_.push_back({.Parent = open_.back()});
  open_.push_back(static_cast<uint32_t>(elements_.size() - 1));
}

void XmlShownText::EndElement(std::string_view name) {
  if (passedOver_ > 0) {
    --passedOver_;
    return;
  }
  open_.pop_back();
  if (!IsOneOf(kLineEnds, LocalName(name))) AddEdge(IsOneOf(kNotes, LocalName(name)));
}

void XmlShownText::Characters(std::string_view text, uint64_t line) {
  if (passedOver_ > 0) return;
  for (size_t begin = 0; begin < text.size();) {
    const size_t end = std::min(text.find('\n', begin), text.size() - 1) + 1;
    lines_.push_back({text_.size(), static_cast<uint32_t>(line++)});
    text_ += text.substr(begin, end - begin);
    begin = end;
  }
  if (text.find_first_not_of(kWhiteSpace) != text.npos) elements_[open_.back()].HasText = true;
}

ShownText XmlShownText::Take() {
  ShownText shown;
  auto edge = edges_.cbegin();
  auto line = lines_.cbegin();
  bool blank = false;
  size_t ends = 0;  // Line ends that are due: one of a line, two of a block.
  uint32_t marked = 0;
  for (size_t at = 0; at < text_.size(); ++at) {
    for (; edge != edges_.cend() && edge->Offset <= at; ++edge) {
      if (edge->Parent == kLineBreak) ends = std::max<size_t>(ends, 1);
      if (PartsBlocks(*edge)) ends = 2;
    }
    while (line + 1 < lines_.cend() && (line + 1)->Offset <= at) ++line;
    if (IsWhite(text_[at])) {
      blank = true;
      continue;
    }
    if (!shown.Text.empty()) {
      if (ends > 0)
        shown.Text.append(ends, '\n');
      else if (blank)
        shown.Text += ' ';
    }
    if (line->Line != marked) shown.Marks.push_back({shown.Text.size(), marked = line->Line, false});
    shown.Text += text_[at];
    blank = false;
    ends = 0;
  }
  if (!shown.Text.empty()) shown.Text += '\n';
  return shown;
}

}  // namespace korv
