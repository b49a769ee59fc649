#pragma once

#include <QObject>
#include <QStringList>
#include <functional>

class QEvent;
class QWidget;

namespace korv {

/// Files that are dropped on a window, or on a text box in it, are opened; a text box would take their names
/// for text. Other things that are dropped go where they always went.
class FileDrops final : public QObject {
 public:
  /// `open` gets the paths, as the system writes them, once the drop is over, so that it may ask questions.
  /// While `ready` says no, files are refused.
  FileDrops(QObject* parent, std::function<bool()> ready, std::function<void(const QStringList&)> open);

  /// Watches a window and every text box that is in it by now.
  void Watch(QWidget& window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<bool()> ready_;
  std::function<void(const QStringList&)> open_;
};

}  // namespace korv
