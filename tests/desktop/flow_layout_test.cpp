// Rows of controls that break where there is no room for all of them.

#include "desktop/widgets/flow_layout.h"

#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <QLineEdit>
#include <QWidget>
#include <vector>

namespace korv {
namespace {

class FlowLayouts : public testing::Test {
 protected:
  QWidget* Add(int width, int height = 20) {
    auto* box = new QWidget(&window);
    box->setFixedSize(width, height);
    flow->addWidget(box);
    return box;
  }
  void LayOut(int width) {
    window.resize(width, flow->heightForWidth(width));
    window.show();
    flow->activate();
  }

  QWidget window;
  FlowLayout* flow = new FlowLayout(&window);
};

TEST_F(FlowLayouts, NeedNothingWhenTheyAreEmpty) {
  EXPECT_EQ(flow->heightForWidth(100), 0);
  EXPECT_EQ(flow->sizeHint(), QSize(0, 0));
  EXPECT_EQ(flow->minimumSize(), QSize(0, 0));
  EXPECT_EQ(flow->takeAt(0), nullptr);
}

TEST_F(FlowLayouts, StandInOneLineWhereThereIsRoom) {
  const QWidget* one = Add(100);
  const QWidget* other = Add(50);
  const int width = flow->sizeHint().width();
  EXPECT_EQ(flow->heightForWidth(width), 20);
  LayOut(width);
  EXPECT_EQ(one->pos(), QPoint(0, 0));
  EXPECT_EQ(other->geometry().right() + 1, width);
  EXPECT_EQ(other->y(), 0);
}

TEST_F(FlowLayouts, GoOnBelowWhereALineIsFull) {
  Add(100);
  const QWidget* high = Add(50, 30);
  const QWidget* last = Add(60);
  const int width = flow->sizeHint().width() - 1;
  LayOut(width);
  EXPECT_EQ(high->y(), 0);
  EXPECT_EQ(last->x(), 0);
  EXPECT_GT(last->y(), high->geometry().bottom());
  EXPECT_EQ(last->geometry().bottom() + 1, flow->heightForWidth(width));
}

TEST_F(FlowLayouts, StandInTheMiddleOfTheirLine) {
  const QWidget* low = Add(100, 20);
  const QWidget* high = Add(50, 30);
  LayOut(200);
  EXPECT_EQ(low->y(), 5);
  EXPECT_EQ(high->y(), 0);
}

TEST_F(FlowLayouts, AreNeverWiderThanTheirWidestItem) {
  Add(100);
  Add(150);
  Add(80);
  EXPECT_EQ(flow->minimumSize().width(), 150);
  EXPECT_EQ(flow->minimumSize().height(), flow->heightForWidth(150));
  EXPECT_GT(flow->heightForWidth(150), 3 * 20);
}

TEST_F(FlowLayouts, GiveHiddenItemsNoPlace) {
  Add(100)->hide();
  const QWidget* other = Add(50);
  LayOut(200);
  EXPECT_EQ(other->x(), 0);
  EXPECT_EQ(flow->sizeHint().width(), 50);
}

TEST_F(FlowLayouts, LetItemsGrowThatWantTo) {
  auto* group = new QHBoxLayout;
  group->setContentsMargins(0, 0, 0, 0);
  auto* line = new QLineEdit(&window);
  group->addWidget(line);
  flow->AddGroup(group);
  const QWidget* last = Add(50);
  LayOut(700);
  EXPECT_EQ(last->geometry().right() + 1, 700);
  EXPECT_GT(line->width(), 600);
}

TEST_F(FlowLayouts, AreMirroredWhereOneReadsFromTheRight) {
  window.setLayoutDirection(Qt::RightToLeft);
  const QWidget* one = Add(100);
  const QWidget* other = Add(50);
  LayOut(300);
  EXPECT_EQ(one->geometry().right() + 1, 300);
  EXPECT_LT(other->geometry().right(), one->x());
}

}  // namespace
}  // namespace korv
