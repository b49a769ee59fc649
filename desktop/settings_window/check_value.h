#pragma once

#include "app/settings/schema.h"

class QCheckBox;

namespace korv {

/// The setting that a checkbox shows, found by its name.
const CheckValue& ValueOf(const QCheckBox& box);

}  // namespace korv
