#pragma once

#include <QLineEdit>

namespace korv {

/// Takes the blanks off the ends of a text.
void TrimBox(QLineEdit& box);
/// Puts a path there and shows its end, which tells more than its beginning.
void SetPath(QLineEdit& box, const QString& path);
/// The path is the tool tip of its box, which may be too narrow for it; of an empty box `otherwise` is.
void ShowPathAsToolTip(QLineEdit& box, const char* otherwise);

}  // namespace korv
