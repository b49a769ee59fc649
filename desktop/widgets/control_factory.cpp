#include "desktop/widgets/control_factory.h"

#include <algorithm>

namespace korv {

namespace {

/// Some styles set the caption almost against the frame.
class Button final : public QPushButton {
 public:
  using QPushButton::QPushButton;
  QSize sizeHint() const override { return WithRoom(QPushButton::sizeHint()); }
  QSize minimumSizeHint() const override { return WithRoom(QPushButton::minimumSizeHint()); }

 private:
  QSize WithRoom(QSize hint) const {
    constexpr int kRoom = 20;
    const int caption = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    return hint.expandedTo({caption + kRoom, 0});
  }
};

}  // namespace

QPushButton* MakeButton(const char* name, const char* caption, QWidget* parent) {
  auto* button = Named<QPushButton>(new Button(QString::fromUtf8(caption), parent), name);
  button->setAutoDefault(false);
  return button;
}

QCheckBox* MakeCheckBox(const char* name, const char* caption, QWidget* parent) {
  return Named(new QCheckBox(QString::fromUtf8(caption), parent), name);
}

QRadioButton* MakeOption(const char* name, const char* caption, QWidget* parent) {
  return Named(new QRadioButton(QString::fromUtf8(caption), parent), name);
}

void SetTabStop(const std::vector<QRadioButton*>& group) {
  const auto selected = std::find_if(group.begin(), group.end(), [](auto* one) { return one->isChecked(); });
  const QRadioButton* const entry = selected == group.end() ? group.front() : *selected;
  for (QRadioButton* option : group) {
    option->setFocusPolicy(option == entry ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

void TabToTheSelected(const std::vector<QRadioButton*>& group) {
  for (QRadioButton* option : group) {
    QObject::connect(option, &QRadioButton::toggled, option, [group] { SetTabStop(group); });
  }
  SetTabStop(group);
}

QComboBox* MakeCombo(const char* name, const char* accessibleName, QWidget* parent) {
  auto* combo = Described(Named(new QComboBox(parent), name), accessibleName);
  // A long path or caption in the list must not widen the window.
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  return combo;
}

QLineEdit* MakeTextBox(const char* name, const char* accessibleName, QWidget* parent) {
  return Described(Named(new QLineEdit(parent), name), accessibleName);
}

QLabel* MakeLabel(const char* name, QWidget* parent) {
  auto* label = Named(new QLabel(parent), name);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

QLabel* MakeCaption(const char* caption, QWidget* control, QWidget* parent) {
  auto* label = new QLabel(QString::fromUtf8(caption), parent);
  label->setBuddy(control);
  return label;
}

QString WithoutMnemonic(QString caption) {
  QString read;
  read.reserve(caption.size());
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && i + 1 < caption.size()) ++i;
    read += caption[i];
  }
  return read;
}

}  // namespace korv
