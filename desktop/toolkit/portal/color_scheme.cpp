// The desktop portal's setting: org.freedesktop.appearance color-scheme, 0 no preference, 1 dark, 2 light.

#include "desktop/toolkit/color_scheme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include "desktop/toolkit/scheme_switch.h"

namespace korv {
namespace {

constexpr const char* kService = "org.freedesktop.portal.Desktop";
constexpr const char* kPath = "/org/freedesktop/portal/desktop";
constexpr const char* kInterface = "org.freedesktop.portal.Settings";
constexpr const char* kNamespace = "org.freedesktop.appearance";
constexpr const char* kKey = "color-scheme";
constexpr uint kDark = 1;

class Follower final : public QObject {
  Q_OBJECT
 public:
  Follower(QObject* parent, const SchemeSwitch& scheme) : QObject(parent), scheme_(scheme) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    bus.connect(QLatin1String(kService), QLatin1String(kPath), QLatin1String(kInterface),
                QStringLiteral("SettingChanged"), this, SLOT(SettingChanged(QString, QString, QDBusVariant)));
    QDBusMessage ask = QDBusMessage::createMethodCall(QLatin1String(kService), QLatin1String(kPath),
                                                      QLatin1String(kInterface), QStringLiteral("Read"));
    ask << QString::fromLatin1(kNamespace) << QString::fromLatin1(kKey);
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(ask), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
      const QDBusPendingReply<QDBusVariant> reply = *answer;
      if (!reply.isError()) Apply(reply.value().variant());
      answer->deleteLater();
    });
  }

 private slots:
  void SettingChanged(const QString& space, const QString& key, const QDBusVariant& value) {
    if (space == QLatin1String(kNamespace) && key == QLatin1String(kKey)) Apply(value.variant());
  }

 private:
  void Apply(QVariant value) {
    // Read() wraps the value once more than the signal does.
    while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    scheme_.Turn(value.toUInt() == kDark);
  }

  SchemeSwitch scheme_;
};

}  // namespace

void FollowColorScheme() {
  const SchemeSwitch scheme;
  if (!scheme.CameUpDark()) new Follower(qApp, scheme);
}

}  // namespace korv

#include "color_scheme.moc"
