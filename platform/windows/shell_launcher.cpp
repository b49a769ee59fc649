#include "platform/windows/shell_launcher.h"

#include <windows.h>

#include <shellapi.h>

#include <cstdint>

#include "platform/files.h"
#include "platform/windows/wide_text.h"

namespace korv {

namespace fs = std::filesystem;

namespace {

/// The shell shows no message of its own: the caller tells the user.
int OpenWithShell(const std::wstring& target) {
  SHELLEXECUTEINFOW request = {};
  request.cbSize = sizeof request;
  request.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
  request.lpVerb = L"open";
  request.lpFile = target.c_str();
  request.nShow = SW_SHOWNORMAL;
  ::ShellExecuteExW(&request);
  return static_cast<int>(reinterpret_cast<intptr_t>(request.hInstApp));
}

class ShellLauncher final : public Launcher {
 public:
  LaunchResult Open(const std::string& target) override {
    return LaunchResultOf(OpenWithShell(ToWide(target)));
  }

  bool OpenClipboardViewer() override {
    wchar_t folder[MAX_PATH];
    if (::GetSystemWindowsDirectoryW(folder, static_cast<UINT>(std::size(folder))) == 0) return false;
    const std::unique_ptr<FileSystem> files = MakeSystemFiles();
    for (const fs::path& place : ClipboardViewerPlaces(folder[0])) {
      if (files->FileExists(place))
        return LaunchResultOf(OpenWithShell(place.native())).Fault == LaunchFault::None;
    }
    return false;
  }
};

}  // namespace

std::unique_ptr<Launcher> MakeShellLauncher() {
  return std::make_unique<ShellLauncher>();
}

LaunchResult LaunchResultOf(int answer) {
  constexpr int kLastFault = 32;
  if (answer > kLastFault) return {};
  switch (answer) {
    case 0:
    case SE_ERR_OOM:
      return {LaunchFault::OutOfMemory, answer};
    case SE_ERR_NOASSOC:
    case SE_ERR_ASSOCINCOMPLETE:
      return {LaunchFault::NoAssociation, answer};
    default:
      return {LaunchFault::Other, answer};
  }
}

std::array<fs::path, 2> ClipboardViewerPlaces(wchar_t drive) {
  const std::wstring root(1, drive);
  return {root + LR"(:\windows\clipbrd.exe)", root + LR"(:\windows\system32\clipbrd.exe)"};
}

}  // namespace korv
