#pragma once

#include <QPushButton>
#include <optional>

#include "app/settings/settings.h"

namespace korv {

/// A button that takes back what another button did to many settings at once. Seen only while there is
/// something to take back; its place is kept.
class SettingsUndo final : public QPushButton {
 public:
  explicit SettingsUndo(QWidget* parent);

  /// Offers to go back to `before`; `by` gets the focus when that has been done. Nothing is offered where
  /// `after` has the same values.
  void Offer(const Settings& before, const Settings& after, QWidget* by);
  /// What to go back to, if anything; it is offered no longer.
  std::optional<Settings> Take();
  /// Something else has been changed since: there is nothing to take back any more.
  void Forget();

 private:
  std::optional<Settings> before_;
  QWidget* by_ = nullptr;
};

}  // namespace korv
