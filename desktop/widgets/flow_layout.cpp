#include "desktop/widgets/flow_layout.h"

#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace korv {
namespace {

constexpr int kBetweenItems = 12;
constexpr int kBetweenLines = 4;

QSize NeedOf(const QLayoutItem& item) {
  return item.sizeHint().expandedTo(item.minimumSize());
}

bool Grows(const QLayoutItem& item) {
  return (item.expandingDirections() & Qt::Horizontal) != 0;
}

}  // namespace

FlowLayout::FlowLayout(QWidget* parent) : QLayout(parent) {
  setContentsMargins(0, 0, 0, 0);
}

FlowLayout::~FlowLayout() {
  qDeleteAll(items_);
}

void FlowLayout::AddGroup(QLayout* group) {
  addChildLayout(group);
  addItem(group);
}

QLayoutItem* FlowLayout::takeAt(int index) {
  return index >= 0 && index < count() ? items_.takeAt(index) : nullptr;
}

std::vector<FlowLayout::Line> FlowLayout::LinesIn(int width) const {
  std::vector<Line> lines;
  for (QLayoutItem* item : items_) {
    if (item->isEmpty()) continue;
    const QSize need = NeedOf(*item);
    if (lines.empty() || lines.back().Width + kBetweenItems + need.width() > width) lines.emplace_back();
    Line& line = lines.back();
    line.Width += need.width() + (line.Items.empty() ? 0 : kBetweenItems);
    line.Height = std::max(line.Height, need.height());
    line.Items.push_back(item);
  }
  return lines;
}

int FlowLayout::heightForWidth(int width) const {
  const QMargins margins = contentsMargins();
  const std::vector<Line> lines = LinesIn(width - margins.left() - margins.right());
  int height = lines.empty() ? 0 : (static_cast<int>(lines.size()) - 1) * kBetweenLines;
  for (const Line& line : lines) height += line.Height;
  return height + margins.top() + margins.bottom();
}

QSize FlowLayout::sizeHint() const {
  const QMargins margins = contentsMargins();
  const std::vector<Line> lines = LinesIn(QLAYOUTSIZE_MAX);
  const QSize line = lines.empty() ? QSize(0, 0) : QSize(lines.front().Width, lines.front().Height);
  return line.grownBy(margins);
}

QSize FlowLayout::minimumSize() const {
  int widest = 0;
  for (const QLayoutItem* item : items_)
    if (!item->isEmpty()) widest = std::max(widest, NeedOf(*item).width());
  const int width = widest + contentsMargins().left() + contentsMargins().right();
  return {width, heightForWidth(width)};
}

void FlowLayout::setGeometry(const QRect& rect) {
  QLayout::setGeometry(rect);
  const QRect room = rect.marginsRemoved(contentsMargins());
  int top = room.top();
  for (const Line& line : LinesIn(room.width())) {
    PlaceLine(line, {room.left(), top, room.width(), line.Height});
    top += line.Height + kBetweenLines;
  }
}

void FlowLayout::PlaceLine(const Line& line, const QRect& room) const {
  const auto growing = static_cast<int>(std::count_if(line.Items.begin(), line.Items.end(),
                                                      [](const QLayoutItem* item) { return Grows(*item); }));
  const int share = growing == 0 ? 0 : std::max(0, room.width() - line.Width) / growing;
  const bool mirrored = parentWidget() != nullptr && parentWidget()->isRightToLeft();
  int left = room.left();
  for (QLayoutItem* item : line.Items) {
    const QSize need = NeedOf(*item);
    const QRect place(left, room.top() + (line.Height - need.height()) / 2,
                      need.width() + (Grows(*item) ? share : 0), need.height());
    item->setGeometry(QStyle::visualRect(mirrored ? Qt::RightToLeft : Qt::LeftToRight, room, place));
    left += place.width() + kBetweenItems;
  }
}

}  // namespace korv
