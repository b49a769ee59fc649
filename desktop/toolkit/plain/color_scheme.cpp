#include "desktop/toolkit/color_scheme.h"

namespace korv {

void FollowColorScheme() {}

}  // namespace korv
