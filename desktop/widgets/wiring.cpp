#include "desktop/widgets/wiring.h"

namespace korv {

void StopListening(QObject& listener) {
  for (QObject* child : listener.findChildren<QObject*>()) {
    child->removeEventFilter(&listener);
    child->disconnect(&listener);
  }
}

}  // namespace korv
