#include "desktop/widgets/settings_binding.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <stdexcept>
#include <string>
#include <utility>

#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/guarded.h"

namespace korv {
namespace {

/// A box of several lines as one line: the breaks between typed words are blanks like any other.
std::string OneLine(const QPlainTextEdit& box) {
  QString text = box.toPlainText();
  text.replace(u'\n', u' ');
  return FromQt(text);
}

std::string TextIn(const QLineEdit& box, bool trimmed) {
  return FromQt(trimmed ? box.text().trimmed() : box.text());
}

/// Selects one of a group of options, or none of them.
void Select(const std::vector<QRadioButton*>& options, int chosen) {
  // A group does not let go of its selection by itself.
  for (QRadioButton* option : options) option->setAutoExclusive(false);
  for (size_t k = 0; k < options.size(); ++k) {
    const QSignalBlocker quiet(options[k]);
    options[k]->setChecked(static_cast<int>(k) == chosen);
  }
  for (QRadioButton* option : options) option->setAutoExclusive(true);
  SetTabStop(options);
}

int SelectedOf(const std::vector<QRadioButton*>& options) {
  for (size_t k = 0; k < options.size(); ++k) {
    if (options[k]->isChecked()) return static_cast<int>(k);
  }
  return kNoChoice;
}

}  // namespace

SettingsBinding::SettingsBinding(Workspace& workspace, Messages& messages,
                                 const std::vector<const QWidget*>& windows)
    : workspace_(workspace), messages_(messages), windows_(windows) {
  for (const SettingRow& row : Schema()) {
    shows_.push_back(HasControl(row)
                         ? std::visit([&](const auto& value) { return Bind(row, value); }, row.Value)
                         : Show());
    if (shows_.back()) shows_.back()(workspace_.Current());
  }
  workspace_.OnChange([this](const SettingSet& changed, ChangedBy) {
    for (size_t k = 0; k < shows_.size(); ++k) {
      if (changed[k] && shows_[k]) shows_[k](workspace_.Current());
    }
  });
}

template <typename Control>
Control* SettingsBinding::Find(const char* name) const {
  for (const QWidget* window : windows_) {
    if (auto* control = window->findChild<Control*>(QLatin1String(name))) return control;
  }
  throw std::logic_error(std::string("There is no such control as ") + name);
}

template <typename Edit>
auto SettingsBinding::ByUser(const SettingRow& row, Edit edit) {
  return Guarded(messages_, row.Name, [this, edit] { workspace_.Change(ChangedBy::User, edit); });
}

SettingsBinding::Show SettingsBinding::Bind(const SettingRow& row, const CheckValue& value) {
  auto* const box = Find<QCheckBox>(row.Control);
  connect(box, &QCheckBox::toggled, this,
          ByUser(row, [box, value](Settings& settings) { value.Set(settings, box->isChecked()); }));
  return [box, value](const Settings& settings) {
    const QSignalBlocker quiet(box);
    box->setChecked(value.Get(settings));
  };
}

SettingsBinding::Show SettingsBinding::Bind(const SettingRow& row, const NumberValue& value) {
  auto* const list = Find<QComboBox>(row.Control);
  connect(list, &QComboBox::currentIndexChanged, this, ByUser(row, [list, value](Settings& settings) {
            if (list->currentIndex() >= 0) value.Set(settings, value.AtIndex(list->currentIndex()));
          }));
  return [list, value](const Settings& settings) {
    const QSignalBlocker quiet(list);
    list->setCurrentIndex(value.IndexOf(value.Get(settings)));
  };
}

SettingsBinding::Show SettingsBinding::Bind(const SettingRow& row, const ChoiceValue& value) {
  return row.Control == nullptr ? BindOptions(row, value)
                                : BindList(row, Find<QComboBox>(row.Control), value);
}

SettingsBinding::Show SettingsBinding::BindList(const SettingRow& row, QComboBox* list,
                                                const ChoiceValue& value) {
  connect(list, &QComboBox::currentIndexChanged, this, ByUser(row, [list, value](Settings& settings) {
            if (list->currentIndex() >= 0) value.Set(settings, list->currentIndex());
          }));
  return [list, value](const Settings& settings) {
    const QSignalBlocker quiet(list);
    list->setCurrentIndex(value.Get(settings));
  };
}

SettingsBinding::Show SettingsBinding::BindOptions(const SettingRow& row, const ChoiceValue& value) {
  std::vector<QRadioButton*> options;
  for (const Choice& choice : value.Choices) options.push_back(Find<QRadioButton>(choice.Control));
  for (QRadioButton* option : options) {
    connect(option, &QRadioButton::toggled, this,
            ByUser(row, [options, value](Settings& settings) { value.Set(settings, SelectedOf(options)); }));
  }
  return [options, value](const Settings& settings) { Select(options, value.Get(settings)); };
}

SettingsBinding::Show SettingsBinding::Bind(const SettingRow& row, const TextValue& value) {
  for (const QWidget* window : windows_) {
    if (auto* box = window->findChild<QPlainTextEdit*>(QLatin1String(row.Control)))
      return BindLines(row, box, value);
  }
  return BindLine(row, Find<QLineEdit>(row.Control), value);
}

SettingsBinding::Show SettingsBinding::BindLine(const SettingRow& row, QLineEdit* box,
                                                const TextValue& value) {
  connect(box, &QLineEdit::textChanged, this, ByUser(row, [box, value](Settings& settings) {
            value.Set(settings, TextIn(*box, value.Trimmed));
          }));
  return [box, value](const Settings& settings) {
    // What the user is typing stays as it is, blanks at its end and all.
    if (TextIn(*box, value.Trimmed) == value.Get(settings)) return;
    const QSignalBlocker quiet(box);
    box->setText(ToQt(value.Get(settings)));
  };
}

SettingsBinding::Show SettingsBinding::BindLines(const SettingRow& row, QPlainTextEdit* box,
                                                 const TextValue& value) {
  connect(box, &QPlainTextEdit::textChanged, this,
          ByUser(row, [box, value](Settings& settings) { value.Set(settings, OneLine(*box)); }));
  return [box, value](const Settings& settings) {
    if (OneLine(*box) == value.Get(settings)) return;
    const QSignalBlocker quiet(box);
    box->setPlainText(ToQt(value.Get(settings)));
  };
}

SettingsBinding::Show SettingsBinding::Bind(const SettingRow& row, const FileListValue&) {
  throw std::logic_error(std::string("No control shows a list of files: ") + row.Name);
}

void FillWithNumbers(QComboBox& list, const SettingRow& row) {
  const auto& numbers = std::get<NumberValue>(row.Value);
  for (int index = 0; index < numbers.Items(); ++index) {
    list.addItem(QString::number(numbers.AtIndex(index)));
  }
}

}  // namespace korv
