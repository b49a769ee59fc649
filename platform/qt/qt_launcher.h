#pragma once

#include "platform/launcher.h"

namespace korv {

/// Opens through the desktop's associations. The desktop gives no reasons for a refusal.
class QtLauncher final : public Launcher {
 public:
  LaunchResult Open(const std::string& target) override;
  bool OpenClipboardViewer() override;
};

}  // namespace korv
