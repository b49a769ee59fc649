#include "desktop/toolkit/desktop_launcher.h"
#include "platform/windows/shell_launcher.h"

namespace korv {

std::unique_ptr<Launcher> MakeDesktopLauncher() {
  // The toolkit has initialised COM for the thread of the windows.
  return MakeShellLauncher();
}

}  // namespace korv
