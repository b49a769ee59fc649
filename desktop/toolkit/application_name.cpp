#include "desktop/toolkit/application_name.h"

#include <QApplication>

namespace korv {

void NameApplication() {
  QApplication::setApplicationName(QStringLiteral("Korv"));
}

}  // namespace korv
