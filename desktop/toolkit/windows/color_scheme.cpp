// The user's choice in the settings of Windows, "Choose your default app mode". The toolkit gives dark title
// bars to windows whose palette is dark, but no dark palette to its native style.

#include "desktop/toolkit/color_scheme.h"

#include <windows.h>

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QSettings>
#include <cwchar>

#include "desktop/toolkit/scheme_switch.h"

namespace korv {
namespace {

bool HighContrast() {
  HIGHCONTRASTW contrast = {};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != FALSE &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

bool WantsDark() {
  // In a high-contrast scheme the user chose every colour; the native style shows them.
  if (HighContrast()) return false;
  const QSettings personal(
      QStringLiteral("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize"),
      QSettings::NativeFormat);
  return personal.value(QStringLiteral("AppsUseLightTheme"), 1).toUInt() == 0;
}

class Follower final : public QObject, public QAbstractNativeEventFilter {
 public:
  Follower(QObject* parent, const SchemeSwitch& scheme) : QObject(parent), scheme_(scheme) {
    scheme_.Turn(WantsDark());
    QCoreApplication::instance()->installNativeEventFilter(this);
  }

  bool nativeEventFilter(const QByteArray&, void* event, qintptr*) override {
    const auto& message = *static_cast<const MSG*>(event);
    // Before the toolkit has it: it takes the colour of the title bars from the palette.
    if (message.message == WM_SETTINGCHANGE && message.lParam != 0 &&
        std::wcscmp(reinterpret_cast<const wchar_t*>(message.lParam), L"ImmersiveColorSet") == 0)
      scheme_.Turn(WantsDark());
    return false;
  }

 private:
  SchemeSwitch scheme_;
};

}  // namespace

void FollowColorScheme() {
  const SchemeSwitch scheme;
  if (!scheme.CameUpDark()) new Follower(qApp, scheme);
}

}  // namespace korv
