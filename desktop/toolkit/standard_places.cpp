#include "desktop/toolkit/standard_places.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QOperatingSystemVersion>
#include <QStandardPaths>

#include "desktop/toolkit/text.h"
#include "platform/files.h"

namespace korv {

std::filesystem::path StateFilePathFor(const QString& program, const QString& folder) {
  QString name = QFileInfo(program).fileName();
  if (name.endsWith(QLatin1String(".exe"), Qt::CaseInsensitive)) name.chop(4);
  const QString place = folder.isEmpty() ? QDir::rootPath() + QStringLiteral("Korv") : folder;
  return PathFromText(FromQt(QDir::toNativeSeparators(place + u'/' + name + QStringLiteral(".usr"))));
}

std::filesystem::path StateFilePath() {
  const bool windows = QOperatingSystemVersion::currentType() == QOperatingSystemVersion::Windows;
  // Both end with the application's name, "Korv".
  return StateFilePathFor(QCoreApplication::applicationFilePath(),
                          QStandardPaths::writableLocation(windows ? QStandardPaths::AppDataLocation
                                                                   : QStandardPaths::AppConfigLocation));
}

}  // namespace korv
