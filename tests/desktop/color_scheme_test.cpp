// Following the colours that the user has chosen for applications in the settings of Windows.

#include <QApplication>
#include <QSettings>
#include <QStyle>
#include <QTest>
#include <QWidget>

#include "desktop/toolkit/color_scheme.h"
#include "tests/desktop/window_test.h"

// Last, for it makes macros of words that others use.
#include <windows.h>

namespace korv {
namespace {

class ColorScheme : public testing::Test {
 protected:
  ColorScheme() : chosen(personal.value(kKey)) { window.show(); }
  ~ColorScheme() override {
    chosen.isValid() ? personal.setValue(kKey, chosen) : personal.remove(kKey);
    Tell(L"ImmersiveColorSet");
  }
  void Choose(bool light) {
    personal.setValue(kKey, light ? 1 : 0);
    personal.sync();
  }
  /// As Windows tells every window that a setting has changed.
  void Tell(const wchar_t* what) {
    SendMessageW(reinterpret_cast<HWND>(window.winId()), WM_SETTINGCHANGE, 0, reinterpret_cast<LPARAM>(what));
    QApplication::processEvents();
  }
  static bool Dark() { return QApplication::palette().color(QPalette::Window).lightness() < 128; }

  const QString kKey = QStringLiteral("AppsUseLightTheme");
  QSettings personal{
      QStringLiteral("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize"),
      QSettings::NativeFormat};
  const QVariant chosen;
  QWidget window;
};

// One test, for an application begins to follow only once.
TEST_F(ColorScheme, IsThatOfTheStartAndOfEveryChange) {
  const QString style = QApplication::style()->name();
  const QPalette palette = QApplication::palette();
  ASSERT_FALSE(Dark());
  Choose(false);
  FollowColorScheme();
  QApplication::processEvents();
  EXPECT_TRUE(Dark());
  EXPECT_EQ(window.palette().color(QPalette::Window), DarkPalette().color(QPalette::Window));

  Choose(true);
  Tell(L"Environment");
  EXPECT_TRUE(Dark()) << "some other setting";
  Tell(L"ImmersiveColorSet");
  EXPECT_FALSE(Dark());
  EXPECT_EQ(QApplication::style()->name(), style);
  EXPECT_EQ(QApplication::palette().color(QPalette::Window), palette.color(QPalette::Window));

  Choose(false);
  Tell(L"ImmersiveColorSet");
  EXPECT_TRUE(Dark());
  EXPECT_NE(QApplication::style()->name(), style);
}

}  // namespace
}  // namespace korv
