#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

namespace broomtide::ui {

/// Keeps the palette of the application in the desktop's colour scheme, dark or light, as the
/// settings portal has it. How is explained in DesktopColours.cpp.
class DesktopColours final : public QObject {
  Q_OBJECT
 public:
  /// Returns at once: the palette changes from the event loop, when the portal on this bus replies
  /// and with each change of the setting. Without a connection, nothing ever happens.
  explicit DesktopColours(QDBusConnection bus);

 private slots:
  void onSettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

 private:
  void read();
  static void apply(const QVariant& scheme);

  QDBusConnection bus_;
};

}  // namespace broomtide::ui
