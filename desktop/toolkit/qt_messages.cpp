#include "desktop/toolkit/qt_messages.h"

#include <QApplication>
#include <QCheckBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>

#include "base/translation.h"
#include "desktop/toolkit/silenced_questions.h"
#include "desktop/toolkit/text.h"

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
    case Answer::Extra:
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
  return title.empty() ? QApplication::applicationName() : ToQt(title);
}

void AddButtons(QMessageBox& box, const Message& message) {
  const QMessageBox::StandardButtons buttons = BoxButtons(message.Buttons);
  box.setStandardButtons(buttons);
  if (const auto preferred = BoxButton(message.DefaultAnswer); buttons.testFlag(preferred)) {
    box.setDefaultButton(preferred);
  }
  box.setEscapeButton(EscapeButton(message.Buttons));
  const auto rename = [&](QMessageBox::StandardButton which, const std::string& caption) {
    if (buttons.testFlag(which) && !caption.empty()) box.button(which)->setText(ToQt(caption));
  };
  rename(QMessageBox::Yes, message.YesButton);
  rename(QMessageBox::No, message.NoButton);
}

Answer AnswerOf(int pressed) {
  switch (pressed) {
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

QString TextOf(const Message& message) {
  const QString text = ToQt(message.Text);
  return message.Addition.empty() ? text : text + QStringLiteral("\n\n") + ToQt(message.Addition);
}

}  // namespace

Answer QtMessages::Show(const Message& message) {
  const SilenceRule* const rule = RuleFor(rules_, message.Question);
  if (rule != nullptr) {
    if (const auto answer = SilencedAnswer(store_, message.Question)) return *answer;
  }
  QMessageBox box(QApplication::activeWindow());
  box.setObjectName(QStringLiteral("messageBox"));
  box.setWindowTitle(TitleOr(message.Title));
  // Paths and words of the user stand in these texts: nothing in them is mark-up.
  box.setTextFormat(Qt::PlainText);
  box.setText(TextOf(message));
  box.setIcon(BoxIcon(message.Icon));
  AddButtons(box, message);
  QAbstractButton* extra = nullptr;
  if (!message.ExtraButton.empty()) {
    extra = box.addButton(ToQt(message.ExtraButton), QMessageBox::ActionRole);
    extra->setObjectName(QStringLiteral("cmdExtra"));
  }
  QCheckBox* silence = nullptr;
  if (rule != nullptr) {
    silence = new QCheckBox(Tr("Do not ask again"), &box);
    silence->setObjectName(QStringLiteral("chkDoNotAskAgain"));
    box.setCheckBox(silence);
  }
  const int pressed = box.exec();
  const Answer answer = extra != nullptr && box.clickedButton() == extra ? Answer::Extra : AnswerOf(pressed);
  if (silence != nullptr && silence->isChecked()) {
    Silence(store_, message.Question, rule->Answer.value_or(answer));
  }
  return answer;
}

std::optional<std::string> QtMessages::AskText(const std::string& prompt, const std::string& title,
                                               const std::string& initial) {
  QInputDialog box(QApplication::activeWindow());
  box.setObjectName(QStringLiteral("inputBox"));
  box.setInputMode(QInputDialog::TextInput);
  box.setWindowTitle(TitleOr(title));
  box.setLabelText(ToQt(prompt));
  box.setTextValue(ToQt(initial));
  // A path has to be readable in full while it is edited.
  box.resize(640, box.sizeHint().height());
  if (box.exec() != QDialog::Accepted) return std::nullopt;
  return FromQt(box.textValue());
}

}  // namespace korv
