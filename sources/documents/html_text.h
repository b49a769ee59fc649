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

/// Whether the program was built with a parser of HTML.
bool ReadsHtml();

/// What a page shows, without what its style sheets do: it is parsed as browsers do. `page` is UTF-8.
/// Elements that stand in a line part no words. The head, scripts, controls, drawings and what is hidden are
/// left out. TooLarge beyond the limits above. Linear in what the parser makes of the page.
Expected<ShownText, DocumentFault> HtmlText(std::string_view page, Yielder& yielder);

}  // namespace korv
