#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

namespace broomtide::ui {

/// Follows the desktop when it asks for dark or light applications. Where nobody answers, or the
/// desktop has no preference, the palette that Qt has from the desktop decides.
class DesktopColours final : public QObject {
  Q_OBJECT
 public:
  /// Asks for the preference on this bus and returns at once; the palette of the application
  /// changes when the answer is there, and with each change of the preference.
  explicit DesktopColours(QDBusConnection bus);

 private slots:
  void onSettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

 private:
  void read();
  static void apply(const QVariant& preference);

  QDBusConnection bus_;
};

}  // namespace broomtide::ui
