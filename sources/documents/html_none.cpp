#include "sources/documents/html_text.h"

// In place of html_text.cpp where the program is built without a parser of HTML.

namespace korv {

bool ReadsHtml() {
  return false;
}

Expected<ShownText, DocumentFault> HtmlText(std::string_view /*page*/, Yielder& /*yielder*/) {
  return DocumentFault::Unsupported;
}

}  // namespace korv
