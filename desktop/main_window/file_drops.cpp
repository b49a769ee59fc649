#include "desktop/main_window/file_drops.h"

#include <QDir>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QUrl>

namespace korv {
namespace {

QStringList PathsOf(const QMimeData& data) {
  QStringList paths;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) paths.append(QDir::toNativeSeparators(url.toLocalFile()));
  }
  return paths;
}

}  // namespace

FileDrops::FileDrops(QObject* parent, std::function<bool()> ready,
                     std::function<void(const QStringList&)> open)
    : QObject(parent), ready_(std::move(ready)), open_(std::move(open)) {}

void FileDrops::Watch(QWidget& window) {
  window.setAcceptDrops(true);
  window.installEventFilter(this);
  for (QLineEdit* box : window.findChildren<QLineEdit*>()) box->installEventFilter(this);
  for (QPlainTextEdit* box : window.findChildren<QPlainTextEdit*>()) {
    box->viewport()->installEventFilter(this);
  }
}

bool FileDrops::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
      break;
    default:
      return QObject::eventFilter(watched, event);
  }
  auto* drop = static_cast<QDropEvent*>(event);
  const QStringList paths = PathsOf(*drop->mimeData());
  if (paths.isEmpty()) return false;
  if (!ready_()) {
    drop->ignore();
    return true;
  }
  // The other program keeps its files, whatever it offered.
  drop->setDropAction(Qt::CopyAction);
  drop->accept();
  if (event->type() == QEvent::Drop) {
    QMetaObject::invokeMethod(
        this, [this, paths] { open_(paths); }, Qt::QueuedConnection);
  }
  return true;
}

}  // namespace korv
