#include "desktop/settings_window/rule_box.h"

#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"

namespace korv {

QCheckBox* MakeRuleBox(const char* name, const char* caption, const RuleExample& example, QWidget* parent) {
  QCheckBox* const box = MakeCheckBox(name, caption, parent);
  box->setToolTip(ToQt(RuleTip(example)));
  return box;
}

}  // namespace korv
