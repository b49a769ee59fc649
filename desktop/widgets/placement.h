#pragma once

class QWidget;

namespace korv {

/// Puts a window that is not shown yet in the middle over another one, inside the screen; a window that is
/// larger than the screen is made smaller.
void CentreOver(QWidget& window, const QWidget& over);

}  // namespace korv
