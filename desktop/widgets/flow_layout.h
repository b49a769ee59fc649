#pragma once

#include <QLayout>
#include <QList>
#include <vector>

namespace korv {

/// Puts its items side by side in their order, and goes on below where a line is full. Items that want to
/// grow share what is left of their line. It is never wider than its widest item needs, so that a row of
/// options does not widen its window.
///
///   auto* row = new FlowLayout(parent);
///   row->addWidget(box);
///   row->AddGroup(captionAndList);  // never torn apart
class FlowLayout final : public QLayout {
 public:
  explicit FlowLayout(QWidget* parent);
  ~FlowLayout() override;

  void AddGroup(QLayout* group);

  void addItem(QLayoutItem* item) override { items_.append(item); }
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override { return items_.value(index); }
  QLayoutItem* takeAt(int index) override;

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
  /// In one line.
  QSize sizeHint() const override;
  /// As narrow as it can be, and as high as that makes it.
  QSize minimumSize() const override;
  void setGeometry(const QRect& rect) override;

 private:
  struct Line {
    std::vector<QLayoutItem*> Items;
    int Width = 0;
    int Height = 0;
  };
  std::vector<Line> LinesIn(int width) const;
  void PlaceLine(const Line& line, const QRect& room) const;

  QList<QLayoutItem*> items_;
};

}  // namespace korv
