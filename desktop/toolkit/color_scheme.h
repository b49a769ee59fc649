#pragma once

#include <QPalette>

namespace korv {

/// Light text on dark ground, for desktops that ask for dark windows but give the toolkit no palette.
QPalette DarkPalette();

/// Makes the windows dark or light as the desktop says, now and whenever it changes its mind. Does nothing
/// where the toolkit knows the desktop's colours itself, or where nobody can be asked.
void FollowColorScheme();

}  // namespace korv
