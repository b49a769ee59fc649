#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace korv {

/// A UTF-8 text as the toolkit's.
inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The same for texts with CR LF between lines, which becomes the toolkit's single line break.
inline QString ToQtLines(std::string_view text) {
  QString shown = ToQt(text);
  shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  return shown;
}

inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

}  // namespace korv
