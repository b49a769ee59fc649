#include "desktop/main_window/path_box.h"

#include "desktop/toolkit/plain_tip.h"

namespace korv {

void TrimBox(QLineEdit& box) {
  const QString trimmed = box.text().trimmed();
  if (trimmed != box.text()) box.setText(trimmed);
}

void SetPath(QLineEdit& box, const QString& path) {
  box.setText(path);
  box.setCursorPosition(static_cast<int>(path.size()));
}

void ShowPathAsToolTip(QLineEdit& box, const char* otherwise) {
  box.setToolTip(box.text().isEmpty() ? QString::fromUtf8(otherwise) : PlainTip(box.text()));
}

}  // namespace korv
