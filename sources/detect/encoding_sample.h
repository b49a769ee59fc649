#pragma once

#include <cstddef>
#include <string_view>

namespace korv {

/// Where nothing tells the encoding of a text, so many bytes from the first one above 127 on do.
inline constexpr size_t kEncodingSample = 16384;

/// Whether bytes are to be taken for UTF-8: at least one sequence of several bytes is well-formed, and at
/// most one in twenty is ill-formed (one stray byte makes no ANSI text of a Russian book). A sequence that
/// the end of the bytes cuts is neither. Linear.
bool LooksLikeUtf8(std::string_view bytes);

}  // namespace korv
