#include "desktop/settings_window/settings_undo.h"

#include <utility>

#include "app/settings/schema.h"
#include "base/translation.h"
#include "desktop/widgets/control_factory.h"

namespace korv {

SettingsUndo::SettingsUndo(QWidget* parent) : QPushButton(Tr("&Undo"), parent) {
  setObjectName(QStringLiteral("cmdUndo"));
  setAutoDefault(false);
  setToolTip(Tr("Sets every control back to what it was before."));
  QSizePolicy policy = sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  setSizePolicy(policy);
  hide();
}

void SettingsUndo::Offer(const Settings& before, const Settings& after, QWidget* by) {
  if ((DifferencesOf(before, after) & SettingsResetBy(ResetBy::RestoreDefaults)).none()) return;
  before_ = before;
  by_ = by;
  show();
}

std::optional<Settings> SettingsUndo::Take() {
  const bool focused = hasFocus();
  std::optional<Settings> before = std::exchange(before_, std::nullopt);
  hide();
  if (focused && by_ != nullptr) by_->setFocus();
  return before;
}

void SettingsUndo::Forget() {
  Take();
}

}  // namespace korv
