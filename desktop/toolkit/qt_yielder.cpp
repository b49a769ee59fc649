#include "desktop/toolkit/qt_yielder.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace korv {

void QtYielder::HandOver() {
  // All that waits is handled, but new events do not keep the loop from its work for longer than this.
  QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

}  // namespace korv
