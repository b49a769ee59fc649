#include "desktop/toolkit/desktop_launcher.h"

#include <QDesktopServices>
#include <QUrl>

#include "desktop/toolkit/text.h"

namespace korv {
namespace {

/// As the toolkit does it, which gives no reasons for a refusal.
class QtLauncher final : public Launcher {
 public:
  LaunchResult Open(const std::string& target) override {
    const QString text = ToQt(target);
    const bool address = text.startsWith(QLatin1String("http:"), Qt::CaseInsensitive) ||
                         text.startsWith(QLatin1String("https:"), Qt::CaseInsensitive);
    const QUrl url = address ? QUrl(text) : QUrl::fromLocalFile(text);
    if (QDesktopServices::openUrl(url)) return {};
    return {LaunchFault::Other, 0};
  }

  bool OpenClipboardViewer() override { return false; }
};

}  // namespace

std::unique_ptr<Launcher> MakeDesktopLauncher() {
  return std::make_unique<QtLauncher>();
}

}  // namespace korv
