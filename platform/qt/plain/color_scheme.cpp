#include "platform/qt/color_scheme.h"

namespace korv {

void FollowColorScheme() {}

}  // namespace korv
