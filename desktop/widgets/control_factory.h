#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QString>
#include <vector>

namespace korv {

/// Controls with the names under which the rest of the program, and its tests, find them.
///
/// Captions are UTF-8; "&" marks the mnemonic and "&&" is an ampersand to be seen. Every control that
/// shows no caption of its own gets an accessible name.

template <typename Control>
Control* Named(Control* control, const char* name) {
  control->setObjectName(QLatin1String(name));
  return control;
}

template <typename Control>
Control* Described(Control* control, const char* accessibleName) {
  control->setAccessibleName(QString::fromUtf8(accessibleName));
  return control;
}

QPushButton* MakeButton(const char* name, const char* caption, QWidget* parent);
QCheckBox* MakeCheckBox(const char* name, const char* caption, QWidget* parent);
QRadioButton* MakeOption(const char* name, const char* caption, QWidget* parent);
/// Tab goes to the selected one of a group of options, or to the first where none is selected.
void TabToTheSelected(const std::vector<QRadioButton*>& group);
/// Brings that to the present selection, where it changed without a signal.
void SetTabStop(const std::vector<QRadioButton*>& group);
QComboBox* MakeCombo(const char* name, const char* accessibleName, QWidget* parent);
QLineEdit* MakeTextBox(const char* name, const char* accessibleName, QWidget* parent);
/// A label whose text changes: plain text, selectable by mouse, so that figures can be copied.
QLabel* MakeLabel(const char* name, QWidget* parent);
/// A label that stands before `control`; its mnemonic leads there.
QLabel* MakeCaption(const char* caption, QWidget* control, QWidget* parent);

/// A caption as the user reads it: without the marks of mnemonics.
QString WithoutMnemonic(QString caption);

}  // namespace korv
