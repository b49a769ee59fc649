#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>

#include "desktop/widgets/guarded.h"

namespace korv {

/// Connects the controls of a window or panel with its handlers, whose errors are shown. The connections end
/// with the listener.
class Wiring {
 public:
  /// Both have to outlive the connections.
  Wiring(QObject& listener, Messages& messages) : listener_(listener), messages_(messages) {}

  template <typename Handler>
  void OnClick(const QAbstractButton* button, const char* place, Handler handler) const {
    QObject::connect(button, &QAbstractButton::clicked, &listener_, Guarded(messages_, place, handler));
  }
  /// Any change of the selection, by the program too.
  template <typename Handler>
  void OnChoice(const QComboBox* combo, const char* place, Handler handler) const {
    QObject::connect(combo, &QComboBox::currentIndexChanged, &listener_, Guarded(messages_, place, handler));
  }
  /// The box has lost the focus, or Enter was pressed in it.
  template <typename Handler>
  void OnLeaving(const QLineEdit* box, const char* place, Handler handler) const {
    QObject::connect(box, &QLineEdit::editingFinished, &listener_, Guarded(messages_, place, handler));
  }
  /// Any change of the text, by the program too.
  template <typename Handler>
  void OnText(const QLineEdit* box, const char* place, Handler handler) const {
    QObject::connect(box, &QLineEdit::textChanged, &listener_, Guarded(messages_, place, handler));
  }
  /// Any change of the check, by the program too.
  template <typename Handler>
  void OnToggle(const QAbstractButton* button, const char* place, Handler handler) const {
    QObject::connect(button, &QAbstractButton::toggled, &listener_, Guarded(messages_, place, handler));
  }

 private:
  QObject& listener_;
  Messages& messages_;
};

/// For a window about to be closed: its controls send no signal any more.
void FallSilent(QWidget& window);

/// For the destructor of a window or panel: controls in it that lose the focus while they are deleted call no
/// handler of it any more.
void StopListening(QObject& listener);

}  // namespace korv
