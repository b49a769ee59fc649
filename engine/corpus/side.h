#pragma once

namespace korv {

/// Of two texts or groups of texts that are compared in one run: A, which is read first, and B.
enum class Side { A, B };

}  // namespace korv
