#include "sources/documents/html_text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>
#include <vector>

#include "base/utf8.h"
#include "sources/documents/html_tree.h"

namespace korv {

namespace {

/// How an element shows what is in it.
enum class Shown { InLine, Block, Line, AsItIs, Not };

/// What a page does not show, or not as running text.
constexpr std::array kNotShown = {
    GUMBO_TAG_HEAD,          GUMBO_TAG_TITLE,    GUMBO_TAG_SCRIPT,   GUMBO_TAG_STYLE,    GUMBO_TAG_TEMPLATE,
    GUMBO_TAG_NOSCRIPT,      GUMBO_TAG_SELECT,   GUMBO_TAG_TEXTAREA, GUMBO_TAG_IFRAME,   GUMBO_TAG_OBJECT,
    GUMBO_TAG_SVG,           GUMBO_TAG_AUDIO,    GUMBO_TAG_VIDEO,    GUMBO_TAG_CANVAS,   GUMBO_TAG_DATALIST,
    GUMBO_TAG_NOEMBED,       GUMBO_TAG_NOFRAMES, GUMBO_TAG_METER,    GUMBO_TAG_PROGRESS, GUMBO_TAG_RP,
    GUMBO_TAG_ANNOTATION_XML};

/// Line ends and blanks count in these.
constexpr std::array kAsItIs = {GUMBO_TAG_PRE, GUMBO_TAG_LISTING, GUMBO_TAG_XMP, GUMBO_TAG_PLAINTEXT};

/// They begin and end a block.
constexpr std::array kBlocks = {
    GUMBO_TAG_HTML,       GUMBO_TAG_BODY,   GUMBO_TAG_ADDRESS, GUMBO_TAG_ARTICLE,  GUMBO_TAG_ASIDE,
    GUMBO_TAG_BLOCKQUOTE, GUMBO_TAG_CENTER, GUMBO_TAG_DETAILS, GUMBO_TAG_DIR,      GUMBO_TAG_DIV,
    GUMBO_TAG_DL,         GUMBO_TAG_DT,     GUMBO_TAG_DD,      GUMBO_TAG_FIELDSET, GUMBO_TAG_FIGCAPTION,
    GUMBO_TAG_FIGURE,     GUMBO_TAG_FOOTER, GUMBO_TAG_FORM,    GUMBO_TAG_H1,       GUMBO_TAG_H2,
    GUMBO_TAG_H3,         GUMBO_TAG_H4,     GUMBO_TAG_H5,      GUMBO_TAG_H6,       GUMBO_TAG_HEADER,
    GUMBO_TAG_HGROUP,     GUMBO_TAG_HR,     GUMBO_TAG_LEGEND,  GUMBO_TAG_LI,       GUMBO_TAG_MAIN,
    GUMBO_TAG_MENU,       GUMBO_TAG_NAV,    GUMBO_TAG_OL,      GUMBO_TAG_P,        GUMBO_TAG_SECTION,
    GUMBO_TAG_SUMMARY,    GUMBO_TAG_TABLE,  GUMBO_TAG_CAPTION, GUMBO_TAG_COLGROUP, GUMBO_TAG_COL,
    GUMBO_TAG_TBODY,      GUMBO_TAG_TD,     GUMBO_TAG_TFOOT,   GUMBO_TAG_TH,       GUMBO_TAG_THEAD,
    GUMBO_TAG_TR,         GUMBO_TAG_UL};

template <size_t N>
bool IsOneOf(const std::array<GumboTag, N>& tags, GumboTag tag) {
  return std::ranges::find(tags, tag) != tags.end();
}

Shown HowShown(GumboTag tag) {
  if (tag == GUMBO_TAG_BR) return Shown::Line;
  if (IsOneOf(kBlocks, tag)) return Shown::Block;
  if (IsOneOf(kNotShown, tag)) return Shown::Not;
  return IsOneOf(kAsItIs, tag) ? Shown::AsItIs : Shown::InLine;
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
    // The parser makes bytes that are no UTF-8 of numbers of characters beyond all that there are.
    const std::string shown = MendedUtf8(text.text);
    asItIs_ > 0 ? text_.RunAsItIs(shown, at) : text_.Run(shown, at);
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
