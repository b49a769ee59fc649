#include "desktop/settings_window/check_value.h"

#include <QCheckBox>
#include <algorithm>

#include "desktop/toolkit/text.h"

namespace korv {

const CheckValue& ValueOf(const QCheckBox& box) {
  const std::string name = FromQt(box.objectName());
  const auto row = std::ranges::find_if(
      Schema(), [&](const SettingRow& one) { return one.Control != nullptr && name == one.Control; });
  return std::get<CheckValue>(row->Value);
}

}  // namespace korv
