#pragma once

#include <QCheckBox>
#include <QMargins>

#include "app/texts/rule_examples.h"

namespace korv {

/// The margins of the groups of controls in the Settings window.
inline constexpr QMargins kSettingsMargins(10, 8, 10, 10);

/// The checkbox of a word rule, with an example as its tool tip.
QCheckBox* MakeRuleBox(const char* name, const char* caption, const RuleExample& example, QWidget* parent);

}  // namespace korv
