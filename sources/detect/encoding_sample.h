#pragma once

#include <cstddef>
#include <string_view>

namespace korv {

/// The bytes that decide the encoding of a text which declares none, counted from the first byte above 127.
inline constexpr size_t kEncodingSample = 16384;

/// Whether `bytes` are taken for UTF-8. At least one sequence of several bytes must be well-formed and at
/// most one in twenty ill-formed, so that one stray byte does not turn a Russian book into ANSI text. A
/// sequence that is cut by the end of `bytes` counts as neither. Linear.
bool LooksLikeUtf8(std::string_view bytes);

}  // namespace korv
