#pragma once

#include <string_view>

namespace korv {

/// The character that an entity of XHTML stands for, by its name without "&" and ";"; 0 for an unknown name.
/// Names are those of the W3C's three sets: Latin 1, special and symbols.
char32_t HtmlEntity(std::string_view name);

}  // namespace korv
