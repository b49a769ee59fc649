#include "desktop/toolkit/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "desktop/toolkit/text.h"

namespace korv {

std::string QtClipboard::Text() const {
  return FromQt(QGuiApplication::clipboard()->text());
}

}  // namespace korv
