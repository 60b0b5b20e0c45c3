// The colour scheme of the desktop.
//
// Desktops offer it through the settings portal (org.freedesktop.portal.Settings on the session
// bus) as the setting color-scheme: 1 for dark, 2 for light, 0 for no preference. Subscribing to
// SettingChanged before calling Read leaves no gap between the two; D-Bus delivers the signals and
// the reply in the order in which they were sent, so what arrives last is valid.
//
// With a preference, the palette of the application becomes that of a Theme. Without one, or
// without a portal, an empty palette leaves the choice to that of Qt's platform theme, which
// Style::polish turns into the closer Theme. Qt then sends each widget a PaletteChange event, and
// those that keep colours or icons take new ones.

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

// Read wraps the value in a variant of its own, the signal does not.
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

void DesktopColours::apply(const QVariant& scheme) {
  constexpr uint dark = 1;
  constexpr uint light = 2;
  const uint value = scheme.toUInt();
  if (value == dark) {
    QApplication::setPalette(Theme::dark().palette());
  } else if (value == light) {
    QApplication::setPalette(Theme::light().palette());
  } else {
    QApplication::setPalette(QPalette());
  }
}

}  // namespace broomtide::ui
