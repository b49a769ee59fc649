#pragma once

#include <QListWidget>

namespace korv {

/// The files and folders that were counted last, to be chosen again by a click. Where there are none it says
/// that they can be dropped here.
class RecentList final : public QListWidget {
 public:
  explicit RecentList(QWidget* parent);

  /// Shows these instead of what it showed. Folders stand below the files.
  void Show(const QStringList& files, const QStringList& folders);
  static QString PathOf(const QListWidgetItem& item) { return item.data(Qt::UserRole).toString(); }

  /// One line: it takes what room is left over.
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override { return minimumSizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace korv
