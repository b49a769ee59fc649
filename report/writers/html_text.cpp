#include "report/writers/html_text.h"

namespace korv {

void AppendHtml(std::string_view text, std::string& html) {
  for (const char c : text) {
    switch (c) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      default:
        html += c;
    }
  }
}

}  // namespace korv
