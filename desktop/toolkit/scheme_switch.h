#pragma once

#include <QPalette>
#include <QString>

namespace korv {

/// Dresses the windows for a dark or a light desktop. Light is as the application came up: make one before
/// anything is changed.
class SchemeSwitch {
 public:
  SchemeSwitch();
  /// Whether the toolkit came up dark: then it knows the desktop's colours itself.
  bool CameUpDark() const;
  void Turn(bool dark);

 private:
  QPalette light_;
  QString lightStyle_;
  bool dark_ = false;
};

}  // namespace korv
