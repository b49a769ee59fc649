#include "desktop/results/table/wrong_mark.h"

#include <QLineEdit>
#include <QPalette>

namespace korv {

void MarkWrong(QLineEdit& field, const QString& reason) {
  if (field.accessibleDescription() == reason) return;
  field.setAccessibleDescription(reason);
  field.setToolTip(reason);
  if (reason.isEmpty()) return field.setPalette(QPalette());
  // A quarter of red keeps the text readable on light and on dark ground.
  QPalette palette = field.palette();
  const QColor base = palette.color(QPalette::Base);
  palette.setColor(QPalette::Base,
                   QColor((3 * base.red() + 255) / 4, 3 * base.green() / 4, 3 * base.blue() / 4));
  field.setPalette(palette);
}

}  // namespace korv
