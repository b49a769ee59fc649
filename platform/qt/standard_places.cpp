#include "platform/qt/standard_places.h"

#include <QDir>
#include <QOperatingSystemVersion>
#include <QStandardPaths>

#include "platform/files.h"
#include "platform/qt/text.h"

namespace korv {

std::filesystem::path StateFilePath() {
  const bool windows = QOperatingSystemVersion::currentType() == QOperatingSystemVersion::Windows;
  // Both end with the application's name, "Korv".
  QString folder = QStandardPaths::writableLocation(windows ? QStandardPaths::AppDataLocation
                                                            : QStandardPaths::AppConfigLocation);
  if (folder.isEmpty()) folder = QDir::rootPath() + QStringLiteral("Korv");
  return PathFromText(FromQt(folder)) / "korv.usr";
}

}  // namespace korv
