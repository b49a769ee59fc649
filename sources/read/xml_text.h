#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace korv {

/// The little of XML that is needed to look through a document without building a tree of it.

/// Whether `rest` begins with the tag `start` ("<w:br", "</w:p"), and not with one whose name only begins so.
bool IsXmlTag(std::string_view rest, std::string_view start);

/// The ">" of the tag at `at`; one inside a quoted value does not count. npos where the tag is cut off.
size_t XmlTagEnd(std::string_view xml, size_t at);

/// The value of an attribute of `tag` (from its "<" on), decoded. Empty where there is no such attribute.
std::optional<std::string> XmlAttribute(std::string_view tag, std::string_view name);

/// Appends `raw` with the five entities of XML and the numeric ones decoded, in one pass. A reference that
/// names no character (an unknown name, 0, a surrogate, beyond U+10FFFF, no ";") stays as it is. Linear.
void AppendXmlDecoded(std::string_view raw, std::string& text);

}  // namespace korv
