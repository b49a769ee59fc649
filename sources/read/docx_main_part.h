#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korv {

/// The member of an archive that its relationships ("_rels/.rels") name as the document itself: the first
/// relationship of a type that ends with "/officeDocument", in either of the format's two dialects. The
/// target may be absolute or relative to the root. Empty where none is named, or one outside the archive.
std::optional<std::string> MainPartOf(std::string_view relationships);

}  // namespace korv
