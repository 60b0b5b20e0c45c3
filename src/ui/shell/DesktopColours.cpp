#include "ui/shell/DesktopColours.h"

#include <QApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

#include "ui/look/Theme.h"

namespace broomtide::ui {
namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colourScheme = QStringLiteral("color-scheme");

// An answer may be wrapped more than once.
QVariant unwrapped(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value;
}

}  // namespace

DesktopColours::DesktopColours(QDBusConnection bus) : bus_(std::move(bus)) {
  if (!bus_.isConnected()) return;
  qRegisterMetaType<QDBusVariant>();  // or no connection is made to a slot that takes one
  bus_.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
               SLOT(onSettingChanged(QString, QString, QDBusVariant)));
  read();
}

void DesktopColours::read() {
  QDBusMessage call =
      QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
  call << appearance << colourScheme;
  auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher] {
    const QDBusPendingReply<QDBusVariant> reply = *watcher;
    if (reply.isValid()) apply(unwrapped(reply.value().variant()));
    watcher->deleteLater();
  });
}

void DesktopColours::onSettingChanged(const QString& group, const QString& key,
                                      const QDBusVariant& value) {
  if (group == appearance && key == colourScheme) apply(unwrapped(value.variant()));
}

void DesktopColours::apply(const QVariant& preference) {
  constexpr uint dark = 1;
  constexpr uint light = 2;
  const uint wanted = preference.toUInt();
  if (wanted == dark) {
    QApplication::setPalette(Theme::dark().palette());
  } else if (wanted == light) {
    QApplication::setPalette(Theme::light().palette());
  } else {
    QApplication::setPalette(QPalette());
  }
}

}  // namespace broomtide::ui
