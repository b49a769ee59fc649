#pragma once

#include <QString>
#include <QTextDocument>

namespace korv {

/// A text for a tool tip, which shows it as it is, also where it looks like rich text: names of files may.
inline QString PlainTip(const QString& text) {
  if (!Qt::mightBeRichText(text)) return text;
  return QLatin1String("<qt>") + text.toHtmlEscaped().replace(u'\n', QLatin1String("<br>")) +
         QLatin1String("</qt>");
}

}  // namespace korv
