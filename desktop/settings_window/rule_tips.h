#pragma once

namespace korv {

struct FrmParamsControls;

/// Gives every word rule of the Settings window a tool tip with an example.
void SetRuleTips(FrmParamsControls& controls);

}  // namespace korv
