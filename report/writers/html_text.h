#pragma once

#include <string>
#include <string_view>

namespace korv {

/// Appends a text to HTML: what would begin a tag, an entity or the end of an attribute is escaped.
void AppendHtml(std::string_view text, std::string& html);

}  // namespace korv
