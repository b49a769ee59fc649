#include "sources/documents/html_text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>
#include <vector>

#include "sources/documents/html_tree.h"

namespace korv {

namespace {

/// How an element shows what is in it.
enum class Shown { InLine, Block, Line, AsItIs, Not };

Shown HowShown(GumboTag tag) {
  switch (tag) {
    case GUMBO_TAG_HEAD:
    case GUMBO_TAG_TITLE:
    case GUMBO_TAG_SCRIPT:
    case GUMBO_TAG_STYLE:
    case GUMBO_TAG_TEMPLATE:
    case GUMBO_TAG_NOSCRIPT:
    case GUMBO_TAG_SELECT:
    case GUMBO_TAG_TEXTAREA:
    case GUMBO_TAG_IFRAME:
    case GUMBO_TAG_OBJECT:
    case GUMBO_TAG_SVG:
    case GUMBO_TAG_AUDIO:
    case GUMBO_TAG_VIDEO:
    case GUMBO_TAG_CANVAS:
    case GUMBO_TAG_DATALIST:
    case GUMBO_TAG_NOEMBED:
    case GUMBO_TAG_NOFRAMES:
    case GUMBO_TAG_METER:
    case GUMBO_TAG_PROGRESS:
    case GUMBO_TAG_RP:
    case GUMBO_TAG_ANNOTATION_XML:
      return Shown::Not;
    case GUMBO_TAG_BR:
      return Shown::Line;
    case GUMBO_TAG_PRE:
    case GUMBO_TAG_LISTING:
    case GUMBO_TAG_XMP:
    case GUMBO_TAG_PLAINTEXT:
      return Shown::AsItIs;
    case GUMBO_TAG_HTML:
    case GUMBO_TAG_BODY:
    case GUMBO_TAG_ADDRESS:
    case GUMBO_TAG_ARTICLE:
    case GUMBO_TAG_ASIDE:
    case GUMBO_TAG_BLOCKQUOTE:
    case GUMBO_TAG_CENTER:
    case GUMBO_TAG_DETAILS:
    case GUMBO_TAG_DIR:
    case GUMBO_TAG_DIV:
    case GUMBO_TAG_DL:
    case GUMBO_TAG_DT:
    case GUMBO_TAG_DD:
    case GUMBO_TAG_FIELDSET:
    case GUMBO_TAG_FIGCAPTION:
    case GUMBO_TAG_FIGURE:
    case GUMBO_TAG_FOOTER:
    case GUMBO_TAG_FORM:
    case GUMBO_TAG_H1:
    case GUMBO_TAG_H2:
    case GUMBO_TAG_H3:
    case GUMBO_TAG_H4:
    case GUMBO_TAG_H5:
    case GUMBO_TAG_H6:
    case GUMBO_TAG_HEADER:
    case GUMBO_TAG_HGROUP:
    case GUMBO_TAG_HR:
    case GUMBO_TAG_LEGEND:
    case GUMBO_TAG_LI:
    case GUMBO_TAG_MAIN:
    case GUMBO_TAG_MENU:
    case GUMBO_TAG_NAV:
    case GUMBO_TAG_OL:
    case GUMBO_TAG_P:
    case GUMBO_TAG_SECTION:
    case GUMBO_TAG_SUMMARY:
    case GUMBO_TAG_TABLE:
    case GUMBO_TAG_CAPTION:
    case GUMBO_TAG_COLGROUP:
    case GUMBO_TAG_COL:
    case GUMBO_TAG_TBODY:
    case GUMBO_TAG_TD:
    case GUMBO_TAG_TFOOT:
    case GUMBO_TAG_TH:
    case GUMBO_TAG_THEAD:
    case GUMBO_TAG_TR:
    case GUMBO_TAG_UL:
      return Shown::Block;
    default:
      return Shown::InLine;
  }
}

/// The name of an element that the parser does not know.
std::string UnknownName(const GumboElement& element) {
  GumboStringPiece piece = element.original_tag;
  if (piece.data == nullptr) return {};
  gumbo_tag_from_original_text(&piece);
  std::string name(piece.data, piece.length);
  std::ranges::transform(name, name.begin(), [](unsigned char c) { return std::tolower(c); });
  return name;
}

bool HidesByStyle(std::string_view style) {
  std::string plain;
  for (const char c : style)
    if (!std::isspace(static_cast<unsigned char>(c)))
      plain += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return plain.find("display:none") != plain.npos || plain.find("visibility:hidden") != plain.npos;
}

bool Has(const GumboElement& element, const char* name) {
  return gumbo_get_attribute(&element.attributes, name) != nullptr;
}

/// Whether the element or its place hides it.
bool IsHidden(const GumboElement& element, const GumboNode* parent) {
  if (Has(element, "hidden")) return true;
  const GumboAttribute* const style = gumbo_get_attribute(&element.attributes, "style");
  if (style != nullptr && HidesByStyle(style->value)) return true;
  if (element.tag == GUMBO_TAG_UNKNOWN) {
    const std::string name = UnknownName(element);
    if (name == "dialog") return !Has(element, "open");
    if (name == "annotation") return true;
  }
  // Of details that are closed only the summary is seen.
  return parent != nullptr && parent->type == GUMBO_NODE_ELEMENT &&
         parent->v.element.tag == GUMBO_TAG_DETAILS && !Has(parent->v.element, "open") &&
         element.tag != GUMBO_TAG_SUMMARY;
}

bool IsInClosedDetails(const GumboNode* parent) {
  return parent != nullptr && parent->type == GUMBO_NODE_ELEMENT &&
         parent->v.element.tag == GUMBO_TAG_DETAILS && !Has(parent->v.element, "open");
}

/// Walks a tree without recursion.
class PageWalker {
 public:
  PageWalker(std::string_view page, Yielder& yielder) : page_(page), text_(page), yielder_(yielder) {}

  ShownText Walk(const GumboNode* document) {
    Enter(document);
    while (!open_.empty() && !yielder_.Stopped()) {
      yielder_.Yield();
      Level& level = open_.back();
      if (level.Next == level.Children->length) {
        Leave(level);
        open_.pop_back();
        continue;
      }
      Enter(static_cast<const GumboNode*>(level.Children->data[level.Next++]));
    }
    return text_.Take();
  }

 private:
  struct Level {
    const GumboNode* Node;
    const GumboVector* Children;
    unsigned Next = 0;
    Shown How = Shown::InLine;
  };

  const GumboNode* Parent() const { return open_.empty() ? nullptr : open_.back().Node; }

  void Enter(const GumboNode* node) {
    switch (node->type) {
      case GUMBO_NODE_DOCUMENT:
        open_.push_back({node, &node->v.document.children});
        break;
      case GUMBO_NODE_ELEMENT:
      case GUMBO_NODE_TEMPLATE:
        EnterElement(node);
        break;
      case GUMBO_NODE_TEXT:
      case GUMBO_NODE_CDATA:
      case GUMBO_NODE_WHITESPACE:
        Text(node->v.text);
        break;
      case GUMBO_NODE_COMMENT:
        break;
    }
  }

  void EnterElement(const GumboNode* node) {
    const GumboElement& element = node->v.element;
    const Shown how = HowShown(element.tag);
    if (how == Shown::Not || IsHidden(element, Parent())) return;
    if (how == Shown::Line) return text_.Break();
    if (how != Shown::InLine || IsUnknownBlock(element)) text_.EndBlock();
    asItIs_ += how == Shown::AsItIs;
    open_.push_back({node, &element.children, 0, how});
  }

  void Leave(const Level& level) {
    asItIs_ -= level.How == Shown::AsItIs;
    if (level.How != Shown::InLine ||
        (level.Node->type == GUMBO_NODE_ELEMENT && IsUnknownBlock(level.Node->v.element)))
      text_.EndBlock();
  }

  static bool IsUnknownBlock(const GumboElement& element) {
    if (element.tag != GUMBO_TAG_UNKNOWN) return false;
    const std::string name = UnknownName(element);
    return name == "dialog" || name == "search";
  }

  void Text(const GumboText& text) {
    if (IsInClosedDetails(Parent())) return;
    const char* const begin = text.original_text.data;
    const bool known = begin >= page_.data() && begin <= page_.data() + page_.size();
    const size_t at = known ? static_cast<size_t>(begin - page_.data()) : page_.size();
    asItIs_ > 0 ? text_.RunAsItIs(text.text, at) : text_.Run(text.text, at);
  }

  std::string_view page_;
  ShownTextBuilder text_;
  Yielder& yielder_;
  std::vector<Level> open_;
  int asItIs_ = 0;
};

constexpr std::array<std::string_view, 28> kNeverDeep = {
    "area",   "base",  "br",    "col",   "embed",    "hr",   "img",  "input", "link", "meta",
    "source", "track", "wbr",   "p",     "li",       "dt",   "dd",   "tr",    "td",   "th",
    "option", "tbody", "thead", "tfoot", "colgroup", "body", "html", "head"};

/// Whether more elements may be open at a time than any real page has: those that are never closed, or only
/// by others, aside.
bool IsTooDeep(std::string_view page) {
  size_t open = 0;
  for (size_t at = page.find('<'); at != page.npos; at = page.find('<', at + 1)) {
    size_t end = at + 1;
    const bool closes = end < page.size() && page[end] == '/';
    if (closes) ++end;
    std::string name;
    constexpr size_t kEnough = 10;
    while (end < page.size() && name.size() < kEnough && std::isalnum(static_cast<unsigned char>(page[end])))
      name += static_cast<char>(std::tolower(static_cast<unsigned char>(page[end++])));
    if (name.empty() || std::ranges::find(kNeverDeep, name) != kNeverDeep.end()) continue;
    if (closes)
      open -= open > 0;
    else if (++open > kMostPageDepth)
      return true;
  }
  return false;
}

}  // namespace

bool ReadsHtml() {
  return true;
}

Expected<ShownText, DocumentFault> HtmlText(std::string_view page, Yielder& yielder) {
  if (page.size() > kMostPageBytes) return DocumentFault::TooLarge;
  if (IsTooDeep(page)) return DocumentFault::TooDeep;
  const HtmlTree tree(page, kMostTreeBytes, yielder);
  if (yielder.Stopped()) return ShownText();
  if (tree.Document() == nullptr) return DocumentFault::TooLarge;
  return PageWalker(page, yielder).Walk(tree.Document());
}

}  // namespace korv
