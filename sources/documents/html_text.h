#pragma once

#include <string_view>

#include "base/expected.h"
#include "base/yielder.h"
#include "sources/documents/document_fault.h"
#include "sources/documents/shown_text.h"

namespace korv {

/// Pages may be as long as this, in bytes: a tree is made of each.
inline constexpr size_t kMostPageBytes = size_t{32} << 20;
/// What the tree may take. Tags that are never closed can make any number of nodes.
inline constexpr size_t kMostTreeBytes = size_t{1} << 30;

/// Elements within each other. Real pages have some dozens; the parser looks at all that are open again and
/// again.
inline constexpr size_t kMostPageDepth = 10000;

/// Whether the program was built with a parser of HTML.
bool ReadsHtml();

/// What a page shows, without what its style sheets do: it is parsed as browsers do. `page` is UTF-8.
/// Elements that stand in a line part no words. The head, scripts, controls, drawings and what is hidden are
/// left out. TooLarge and TooDeep beyond the limits above. A stop gives no text.
Expected<ShownText, DocumentFault> HtmlText(std::string_view page, Yielder& yielder);

}  // namespace korv
