#include "platform/qt/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "platform/qt/text.h"

namespace korv {

std::string QtClipboard::Text() const {
  return FromQt(QGuiApplication::clipboard()->text());
}

}  // namespace korv
