#pragma once

namespace korv {

/// Tells the toolkit the program's name. Call it once, when the application has been made.
///
/// Message boxes without a title of their own get it. No window's title is changed by it: the toolkit would
/// append a display name to each, and a window's title is its caption alone.
void NameApplication();

}  // namespace korv
