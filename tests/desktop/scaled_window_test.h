#pragma once

#include <QApplication>
#include <QFont>

#include "tests/desktop/window_test.h"

namespace korv {

/// The main window with a font of so many percent of the usual size.
///
///   INSTANTIATE_TEST_SUITE_P(AtFontsOfPercent, MyTest, testing::Values(100, 200),
///   testing::PrintToStringParamName());
class ScaledWindowTest : public WindowTest, public testing::WithParamInterface<int> {
 protected:
  void SetUp() override {
    QFont font = plain_;
    font.setPointSizeF(font.pointSizeF() * GetParam() / 100);
    QApplication::setFont(font);
    ASSERT_TRUE(Start());
    // What a control needs is told from parent to parent, some of them at each turn.
    for (int i = 0; i < 4; ++i) QApplication::processEvents();
  }
  void TearDown() override {
    End();
    QApplication::setFont(plain_);
  }

 private:
  const QFont plain_ = QApplication::font();
};

}  // namespace korv
