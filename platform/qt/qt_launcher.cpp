#include "platform/qt/qt_launcher.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include "platform/qt/text.h"

namespace korv {

LaunchResult QtLauncher::Open(const std::string& target) {
  const QString text = ToQt(target);
  const bool address = text.startsWith(QLatin1String("http:"), Qt::CaseInsensitive) ||
                       text.startsWith(QLatin1String("https:"), Qt::CaseInsensitive);
  const QUrl url = address ? QUrl(text) : QUrl::fromLocalFile(text);
  if (QDesktopServices::openUrl(url)) return {};
  return {LaunchFault::Other, 0};
}

bool QtLauncher::OpenClipboardViewer() {
  // Only systems with drive letters ever had one, in either of two places.
  const QString drive = QDir::rootPath();
  if (!drive.contains(u':')) return false;
  for (const char* place : {"windows/system32/clipbrd.exe", "windows/clipbrd.exe"}) {
    const QString program = drive + QLatin1String(place);
    if (QFileInfo::exists(program) && QProcess::startDetached(program, {})) return true;
  }
  return false;
}

}  // namespace korv
