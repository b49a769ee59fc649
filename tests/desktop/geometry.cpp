#include "tests/desktop/geometry.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <algorithm>

namespace korv {
namespace {

std::string NameOf(const QWidget& control) {
  std::string name = control.objectName().toStdString();
  if (name.empty()) name = control.metaObject()->className();
  if (const auto* label = qobject_cast<const QLabel*>(&control); label && control.objectName().isEmpty()) {
    name += " '" + label->text().toStdString() + "'";
  }
  return name;
}

std::string PlaceOf(const QRect& place) {
  const auto number = [](int n) { return std::to_string(n); };
  return number(place.width()) + " x " + number(place.height()) + " at " + number(place.x()) + ", " +
         number(place.y());
}

/// The toolkit makes controls of several parts, and knows best where they go.
bool IsMadeOfParts(const QWidget& control) {
  return qobject_cast<const QComboBox*>(&control) || qobject_cast<const QLineEdit*>(&control) ||
         qobject_cast<const QScrollBar*>(&control) || control.inherits("QAbstractSpinBox") ||
         control.inherits("QAbstractItemView") || control.inherits("QMenuBar") ||
         control.inherits("QTabBar") || control.inherits("QTextEdit") || control.inherits("QPlainTextEdit");
}

class Inspection {
 public:
  std::vector<std::string> Take(QWidget& window) {
    LookInto(window);
    return std::move(faults_);
  }

 private:
  void Fault(const std::string& text) { faults_.push_back(text); }

  void LookInto(QWidget& parent) {
    std::vector<QWidget*> shown;
    for (QObject* child : parent.children()) {
      auto* control = qobject_cast<QWidget*>(child);
      if (control == nullptr || control->isWindow() || !control->isVisible()) continue;
      if (control->inherits("QFocusFrame") || control->inherits("QRubberBand") ||
          control->inherits("QSizeGrip")) {
        continue;
      }
      shown.push_back(control);
    }
    const bool scrolls =
        parent.parentWidget() != nullptr && qobject_cast<QAbstractScrollArea*>(parent.parentWidget());
    for (size_t i = 0; i < shown.size(); ++i) {
      if (!scrolls) LookAtPlace(*shown[i], parent);
      for (size_t k = 0; k < i; ++k) LookAtPair(*shown[i], *shown[k]);
      LookAtCaption(*shown[i]);
      if (!IsMadeOfParts(*shown[i])) LookInto(*shown[i]);
    }
  }

  void LookAtPlace(const QWidget& control, const QWidget& parent) {
    if (!parent.rect().contains(control.geometry())) {
      Fault(NameOf(control) + " (" + PlaceOf(control.geometry()) + ") lies outside " + NameOf(parent) + " (" +
            PlaceOf(parent.rect()) + ")");
    }
    if (qobject_cast<const QLabel*>(&control)) return;  // Its text is looked at, which is more.
    // A least size that was set takes the place of the control's own.
    const QSize hint = control.minimumSizeHint();
    const QSize set = control.minimumSize();
    QSize least(set.width() > 0 ? set.width() : hint.width(),
                set.height() > 0 ? set.height() : hint.height());
    // What breaks into lines needs its least height where it is narrowest only.
    if (set.height() == 0 && control.hasHeightForWidth())
      least.setHeight(std::min(least.height(), control.heightForWidth(control.width())));
    if (control.width() < least.width() || control.height() < least.height()) {
      Fault(NameOf(control) + " (" + PlaceOf(control.geometry()) + ") is smaller than " +
            PlaceOf(QRect(QPoint(0, 0), least)));
    }
  }

  void LookAtPair(const QWidget& one, const QWidget& other) {
    if (one.geometry().intersects(other.geometry())) {
      Fault(NameOf(one) + " (" + PlaceOf(one.geometry()) + ") overlaps " + NameOf(other) + " (" +
            PlaceOf(other.geometry()) + ")");
    }
  }

  void LookAtCaption(const QWidget& control) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) {
      const QSize needed = button->sizeHint();
      if (!button->text().isEmpty() &&
          (button->width() < needed.width() || button->height() < needed.height())) {
        Fault(NameOf(control) + " cuts its caption '" + button->text().toStdString() + "'");
      }
    } else if (const auto* frame = qobject_cast<const QGroupBox*>(&control)) {
      if (frame->width() < frame->minimumSizeHint().width()) Fault(NameOf(control) + " cuts its title");
    } else if (const auto* label = qobject_cast<const QLabel*>(&control)) {
      LookAtLabel(*label);
    } else if (const auto* combo = qobject_cast<const QComboBox*>(&control)) {
      LookAtList(*combo);
    } else if (const auto* line = qobject_cast<const QLineEdit*>(&control)) {
      if (line->text().isEmpty()) LookAtText(*line, line->placeholderText(), line->width() - kLineFrame);
      if (line->height() < line->fontMetrics().height()) Fault(NameOf(control) + " cuts its line");
    } else if (const auto* box = qobject_cast<const QPlainTextEdit*>(&control)) {
      if (box->viewport()->height() < box->fontMetrics().lineSpacing()) {
        Fault(NameOf(control) + " (" + PlaceOf(control.geometry()) + ") has no room for a line");
      }
    }
  }

  void LookAtLabel(const QLabel& label) {
    if (label.text().isEmpty()) return;
    const bool fits = label.wordWrap() ? label.heightForWidth(label.width()) <= label.height()
                                       : label.sizeHint().width() <= label.width() &&
                                             label.sizeHint().height() <= label.height();
    if (!fits && !label.toolTip().contains(label.text())) {
      Fault(NameOf(label) + " (" + PlaceOf(label.geometry()) + ") cuts '" + label.text().toStdString() + "'");
    }
  }

  void LookAtList(const QComboBox& combo) {
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    option.editable = combo.isEditable();
    const QRect field =
        combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo);
    LookAtText(combo, combo.currentIndex() < 0 ? combo.placeholderText() : combo.currentText(),
               field.width());
  }

  void LookAtText(const QWidget& control, const QString& text, int room) {
    if (control.fontMetrics().horizontalAdvance(text) > room && !control.toolTip().contains(text)) {
      Fault(NameOf(control) + " (" + PlaceOf(control.geometry()) + ") cuts '" + text.toStdString() + "'");
    }
  }

  static constexpr int kLineFrame = 8;
  std::vector<std::string> faults_;
};

}  // namespace

std::vector<std::string> GeometryFaults(QWidget& window) {
  QApplication::processEvents();
  return Inspection().Take(window);
}

std::vector<std::string> GeometryFaultsInEverySize(QWidget& window) {
  QApplication::processEvents();
  const QSize before = window.size();
  const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
  std::vector<std::string> faults;
  for (const QSize& size : {before, least, before.expandedTo(least) + QSize(400, 300)}) {
    window.resize(size);
    for (const std::string& fault : GeometryFaults(window)) {
      faults.push_back(std::to_string(window.width()) + " x " + std::to_string(window.height()) + ": " +
                       fault);
    }
  }
  window.resize(before);
  QApplication::processEvents();
  return faults;
}

}  // namespace korv
