#include "platform/qt/qt_messages.h"

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>

#include "platform/qt/text.h"

namespace korv {
namespace {

QMessageBox::Icon BoxIcon(Icon icon) {
  switch (icon) {
    case Icon::None:
      return QMessageBox::NoIcon;
    case Icon::Information:
      return QMessageBox::Information;
    case Icon::Exclamation:
      return QMessageBox::Warning;
    case Icon::Critical:
      return QMessageBox::Critical;
    case Icon::Question:
      return QMessageBox::Question;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons BoxButtons(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok:
      return QMessageBox::Ok;
    case Buttons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

QMessageBox::StandardButton BoxButton(Answer answer) {
  switch (answer) {
    case Answer::Ok:
      return QMessageBox::Ok;
    case Answer::Yes:
      return QMessageBox::Yes;
    case Answer::No:
      return QMessageBox::No;
    case Answer::Cancel:
      return QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

/// Escape and the close button give the answer that changes least.
QMessageBox::StandardButton EscapeButton(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok:
      return QMessageBox::Ok;
    case Buttons::YesNo:
      return QMessageBox::No;
    case Buttons::YesNoCancel:
      return QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

QString TitleOr(const std::string& title) {
  return title.empty() ? QApplication::applicationDisplayName() : ToQt(title);
}

}  // namespace

Answer QtMessages::Show(const Message& message) {
  QMessageBox box(QApplication::activeWindow());
  box.setObjectName(QStringLiteral("messageBox"));
  box.setWindowTitle(TitleOr(message.title));
  // Paths and words of the user stand in these texts: nothing in them is mark-up.
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQtLines(message.text));
  box.setIcon(BoxIcon(message.icon));
  const QMessageBox::StandardButtons buttons = BoxButtons(message.buttons);
  box.setStandardButtons(buttons);
  if (const auto preferred = BoxButton(message.defaultAnswer); buttons.testFlag(preferred)) {
    box.setDefaultButton(preferred);
  }
  box.setEscapeButton(EscapeButton(message.buttons));
  switch (box.exec()) {
    case QMessageBox::Yes:
      return Answer::Yes;
    case QMessageBox::No:
      return Answer::No;
    case QMessageBox::Cancel:
      return Answer::Cancel;
    default:
      return Answer::Ok;
  }
}

std::optional<std::string> QtMessages::AskText(const std::string& prompt, const std::string& title,
                                               const std::string& initial) {
  QInputDialog box(QApplication::activeWindow());
  box.setObjectName(QStringLiteral("inputBox"));
  box.setInputMode(QInputDialog::TextInput);
  box.setWindowTitle(TitleOr(title));
  box.setLabelText(ToQtLines(prompt));
  box.setTextValue(ToQt(initial));
  // A path has to be readable in full while it is edited.
  box.resize(640, box.sizeHint().height());
  if (box.exec() != QDialog::Accepted) return std::nullopt;
  return FromQt(box.textValue());
}

}  // namespace korv
