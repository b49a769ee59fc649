#include "desktop/main_window/recent_list.h"

#include <QPainter>
#include <QStyle>

#include "base/translation.h"
#include "desktop/toolkit/plain_tip.h"

namespace korv {

RecentList::RecentList(QWidget* parent) : QListWidget(parent) {
  // A path is cut where it tells least.
  setTextElideMode(Qt::ElideMiddle);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setUniformItemSizes(true);
  const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize);
  setIconSize({icon, icon});
}

void RecentList::Show(const QStringList& files, const QStringList& folders) {
  clear();
  const auto add = [this](const QStringList& paths, QStyle::StandardPixmap icon) {
    for (const QString& path : paths) {
      auto* item = new QListWidgetItem(style()->standardIcon(icon), path, this);
      item->setData(Qt::UserRole, path);
      item->setToolTip(PlainTip(path));
    }
  };
  add(files, QStyle::SP_FileIcon);
  add(folders, QStyle::SP_DirIcon);
}

QSize RecentList::minimumSizeHint() const {
  // A whole row: half of one cannot be read.
  return {0, std::max(fontMetrics().lineSpacing() + 2, iconSize().height() + 2) + 2 * frameWidth() + 2};
}

void RecentList::paintEvent(QPaintEvent* event) {
  QListWidget::paintEvent(event);
  if (count() > 0) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.drawText(viewport()->rect().adjusted(6, 2, -6, -2), Qt::AlignCenter | Qt::TextWordWrap,
                   Tr("Drop a file or a folder here."));
}

}  // namespace korv
