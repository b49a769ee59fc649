#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "app/workspace.h"
#include "platform/messages.h"

class QAbstractButton;
class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QRadioButton;

namespace korv {

/// Binds the controls of windows to the settings of a workspace, under the names that the rows of the
/// settings have for them. What happens to a control becomes the setting at once, as a change by the user;
/// what the program changes in a setting is put into its control, which then tells nobody: who wants to know
/// hears it from the workspace, when every control is up to date.
class SettingsBinding final : public QObject {
 public:
  /// The controls, which have to be there, show the settings from now on. All outlive this. Throws where a
  /// control is missing or of another kind than the setting's value.
  SettingsBinding(Workspace& workspace, Messages& messages, const std::vector<const QWidget*>& windows);

 private:
  /// Puts the setting into its control.
  using Show = std::function<void(const Settings& settings)>;

  Show Bind(const SettingRow& row, const CheckValue& value);
  Show Bind(const SettingRow& row, const NumberValue& value);
  Show Bind(const SettingRow& row, const ChoiceValue& value);
  Show Bind(const SettingRow& row, const TextValue& value);
  Show Bind(const SettingRow& row, const FileListValue& value);
  Show BindList(const SettingRow& row, QComboBox* list, const ChoiceValue& value);
  Show BindOptions(const SettingRow& row, const ChoiceValue& value);
  Show BindLine(const SettingRow& row, QLineEdit* box, const TextValue& value);
  Show BindLines(const SettingRow& row, QPlainTextEdit* box, const TextValue& value);

  template <typename Control>
  Control* Find(const char* name) const;
  /// `edit` by the user; errors are shown.
  template <typename Edit>
  auto ByUser(const SettingRow& row, Edit edit);

  Workspace& workspace_;
  Messages& messages_;
  std::vector<const QWidget*> windows_;
  std::vector<Show> shows_;  ///< In the order of the rows; empty for a setting without a control.
};

/// Puts every number of a setting into its list, in their order.
void FillWithNumbers(QComboBox& list, const SettingRow& row);

}  // namespace korv
