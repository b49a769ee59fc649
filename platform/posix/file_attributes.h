#pragma once

#include <sys/stat.h>

namespace korv {

/// Gives the open file `to` what the open file `from` has beside its content, as far as the user may: owner,
/// permissions, access lists and other extended attributes. `facts` are those of `from`.
void CopyAttributes(int from, const struct stat& facts, int to);

}  // namespace korv
