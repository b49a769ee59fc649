// Controls and the settings that they are bound to, row by row.

#include "desktop/widgets/settings_binding.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <memory>

#include "tests/app/changed_settings.h"
#include "tests/fakes/fake_messages.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A window with a control for each setting that has one.
class SettingsBindingTest : public testing::Test {
 protected:
  SettingsBindingTest() {
    for (const SettingRow& row : Schema())
      if (HasControl(row)) std::visit([&](const auto& value) { Make(row, value); }, row.Value);
    workspace.OnChange([this](const SettingSet& changed, ChangedBy by) { heard.emplace_back(changed, by); });
    binding = std::make_unique<SettingsBinding>(workspace, messages, std::vector<const QWidget*>{&window});
  }

  template <typename Control>
  Control* Named(const char* name) {
    auto* control = new Control(&window);
    control->setObjectName(QLatin1String(name));
    return control;
  }
  void Make(const SettingRow& row, const CheckValue&) { Named<QCheckBox>(row.Control); }
  void Make(const SettingRow& row, const NumberValue&) {
    FillWithNumbers(*Named<QComboBox>(row.Control), row);
  }
  void Make(const SettingRow& row, const ChoiceValue& value) {
    QComboBox* const list = row.Control == nullptr ? nullptr : Named<QComboBox>(row.Control);
    // The options of a group share a parent.
    auto* const group = new QWidget(&window);
    for (const Choice& choice : value.Choices) {
      if (list != nullptr) {
        list->addItem(QLatin1String(choice.Word));
      } else {
        auto* const option = new QRadioButton(group);
        option->setObjectName(QLatin1String(choice.Control));
      }
    }
  }
  void Make(const SettingRow& row, const TextValue&) {
    if (row.Name == std::string_view("ExtraWordsToIgnore"))
      Named<QPlainTextEdit>(row.Control);
    else
      Named<QLineEdit>(row.Control);
  }
  void Make(const SettingRow&, const FileListValue&) {}

  template <typename Control>
  Control* Find(const char* name) const {
    return window.findChild<Control*>(QLatin1String(name));
  }

  // What a user does to a control until it has the value of `to`, and what the control then says.
  void Do(const SettingRow& row, const CheckValue& value, const Settings& to) {
    Find<QCheckBox>(row.Control)->setChecked(value.Get(to));
  }
  void Do(const SettingRow& row, const NumberValue& value, const Settings& to) {
    Find<QComboBox>(row.Control)->setCurrentIndex(value.IndexOf(value.Get(to)));
  }
  void Do(const SettingRow& row, const ChoiceValue& value, const Settings& to) {
    if (row.Control != nullptr)
      Find<QComboBox>(row.Control)->setCurrentIndex(value.Get(to));
    else
      Find<QRadioButton>(value.Choices[static_cast<size_t>(value.Get(to))].Control)->click();
  }
  void Do(const SettingRow& row, const TextValue& value, const Settings& to) {
    const QString text = QString::fromStdString(value.Get(to));
    if (auto* box = Find<QPlainTextEdit>(row.Control))
      box->setPlainText(text);
    else
      Find<QLineEdit>(row.Control)->setText(text);
  }
  void Do(const SettingRow&, const FileListValue&, const Settings&) {}

  bool Shows(const SettingRow& row, const CheckValue& value, const Settings& settings) {
    return Find<QCheckBox>(row.Control)->isChecked() == value.Get(settings);
  }
  bool Shows(const SettingRow& row, const NumberValue& value, const Settings& settings) {
    return Find<QComboBox>(row.Control)->currentText().toInt() == value.Get(settings);
  }
  bool Shows(const SettingRow& row, const ChoiceValue& value, const Settings& settings) {
    const int chosen = value.Get(settings);
    if (row.Control != nullptr) return Find<QComboBox>(row.Control)->currentIndex() == chosen;
    for (size_t k = 0; k < value.Choices.size(); ++k) {
      if (Find<QRadioButton>(value.Choices[k].Control)->isChecked() != (static_cast<int>(k) == chosen))
        return false;
    }
    return true;
  }
  bool Shows(const SettingRow& row, const TextValue& value, const Settings& settings) {
    auto* const box = Find<QPlainTextEdit>(row.Control);
    const QString text = box ? box->toPlainText() : Find<QLineEdit>(row.Control)->text();
    return text.toStdString() == value.Get(settings);
  }
  bool Shows(const SettingRow&, const FileListValue&, const Settings&) { return true; }

  void ExpectToShow(const Settings& settings) {
    for (const SettingRow& row : Schema()) {
      const bool shown =
          !HasControl(row) ||
          std::visit([&](const auto& value) { return Shows(row, value, settings); }, row.Value);
      EXPECT_TRUE(shown) << row.Name;
    }
  }

  QWidget window;
  Workspace workspace;
  FakeMessages messages;
  std::unique_ptr<SettingsBinding> binding;
  std::vector<std::pair<SettingSet, ChangedBy>> heard;
};

TEST_F(SettingsBindingTest, ShowsTheSettingsFromTheBeginning) {
  ExpectToShow(SettingsAtStart());
  EXPECT_THAT(heard, IsEmpty());
}

TEST_F(SettingsBindingTest, MakesAUsersActAChangeByTheUser) {
  for (const SettingRow& row : Schema()) {
    if (!HasControl(row)) continue;
    heard.clear();
    std::visit([&](const auto& value) { Do(row, value, AllChanged()); }, row.Value);
    EXPECT_THAT(heard, ElementsAre(std::pair(SetOf(row), ChangedBy::User))) << row.Name;
    EXPECT_TRUE(SameValue(row, workspace.Current(), AllChanged())) << row.Name;
  }
}

TEST_F(SettingsBindingTest, ShowsWhatTheProgramChangesWithoutTellingOfTheControls) {
  int told = 0;
  for (const QAbstractButton* button : window.findChildren<QAbstractButton*>())
    QObject::connect(button, &QAbstractButton::toggled, &window, [&told] { ++told; });
  for (const QComboBox* list : window.findChildren<QComboBox*>())
    QObject::connect(list, &QComboBox::currentIndexChanged, &window, [&told] { ++told; });
  for (const QLineEdit* box : window.findChildren<QLineEdit*>())
    QObject::connect(box, &QLineEdit::textChanged, &window, [&told] { ++told; });
  workspace.Change(ChangedBy::Program, AllChanged());
  ExpectToShow(AllChanged());
  EXPECT_EQ(told, 0);
  ASSERT_EQ(heard.size(), 1U);
  EXPECT_EQ(heard[0].second, ChangedBy::Program);
  workspace.Change(ChangedBy::Program, Settings{});
  ExpectToShow(Settings{});
}

TEST_F(SettingsBindingTest, HasAllControlsUpToDateWhenAChangeIsTold) {
  workspace.OnChange([this](const SettingSet&, ChangedBy) { ExpectToShow(workspace.Current()); });
  workspace.Change(ChangedBy::Program, AllChanged());
}

TEST_F(SettingsBindingTest, ShowsThatNothingIsChosen) {
  workspace.Change(ChangedBy::Program, [](Settings& s) { s.IgnoreOption.reset(); });
  for (const Choice& choice : std::get<ChoiceValue>(RowOf("IgnoreOption").Value).Choices)
    EXPECT_FALSE(Find<QRadioButton>(choice.Control)->isChecked()) << choice.Control;
  Find<QRadioButton>("optRemoveWordsToIgnore")->click();
  EXPECT_EQ(workspace.Current().IgnoreOption, IgnoreRule::Remove);
  EXPECT_FALSE(Find<QRadioButton>("optAllowPhrasesAllWordsToIgnore")->isChecked());
}

TEST_F(SettingsBindingTest, LeavesABoxAsItIsTypedWhereItSaysTheSame) {
  auto* const path = Find<QLineEdit>("txbFile_0");
  path->setText(QStringLiteral(" /a b.txt "));
  EXPECT_EQ(workspace.Current().InputFile, "/a b.txt");
  EXPECT_EQ(path->text().toStdString(), " /a b.txt ");
  auto* const words = Find<QPlainTextEdit>("txbWordsToIgnoreOrCount_0");
  words->setPlainText(QStringLiteral("ibid\nviz"));
  EXPECT_EQ(workspace.Current().ExtraWordsToIgnore, "ibid viz");
  EXPECT_EQ(words->toPlainText().toStdString(), "ibid\nviz");
  Find<QLineEdit>("txbFilterWords")->setText(QStringLiteral(" the "));
  EXPECT_EQ(workspace.Current().Report.FilterText, " the ") << "as typed";
}

TEST_F(SettingsBindingTest, NeedsEveryControl) {
  delete Find<QCheckBox>("chkCaseSignificant");
  Workspace other;
  EXPECT_THROW(SettingsBinding(other, messages, {&window}), std::logic_error);
}

}  // namespace
}  // namespace korv
