#include "desktop/widgets/wiring.h"

namespace korv {

void FallSilent(QWidget& window) {
  for (QObject* child : window.findChildren<QObject*>()) {
    child->removeEventFilter(&window);
    child->blockSignals(true);
  }
}

void StopListening(QObject& listener) {
  for (QObject* child : listener.findChildren<QObject*>()) {
    child->removeEventFilter(&listener);
    child->disconnect(&listener);
  }
}

}  // namespace korv
