#include "ui/shell/DesktopColours.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDBusError>
#include <QProcess>

#include "ui/TestWindow.h"
#include "ui/look/Theme.h"

namespace broomtide {
namespace {

// A bus of its own, which ends with this object.
class PrivateBus {
 public:
  PrivateBus() {
    daemon_.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
    daemon_.waitForReadyRead();
    address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
  }

  ~PrivateBus() {
    for (const QString& name : names_) QDBusConnection::disconnectFromBus(name);
    daemon_.kill();
    daemon_.waitForFinished();
  }

  QDBusConnection connect(const QString& name) {
    names_ << name;
    return QDBusConnection::connectToBus(address_, name);
  }

 private:
  QProcess daemon_;
  QString address_;
  QStringList names_;
};

// The part of a desktop that tells programs what people prefer.
class Desktop : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
 public:
  explicit Desktop(QDBusConnection bus) : bus_(std::move(bus)) {
    const bool isThere =
        bus_.registerObject("/org/freedesktop/portal/desktop", this,
                            QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals) &&
        bus_.registerService("org.freedesktop.portal.Desktop");
    EXPECT_TRUE(isThere) << bus_.lastError().message().toStdString();
  }

  void prefer(uint wanted) {
    emit SettingChanged("org.freedesktop.appearance", "color-scheme",
                        QDBusVariant(QVariant::fromValue(wanted)));
  }

  uint scheme = 0;

 public slots:
  QDBusVariant Read(const QString& group, const QString& key) {
    EXPECT_EQ(group + " " + key, "org.freedesktop.appearance color-scheme");
    return QDBusVariant(QVariant::fromValue(QDBusVariant(QVariant::fromValue(scheme))));
  }

 signals:
  void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

 private:
  QDBusConnection bus_;
};

bool isDark() { return &ui::Theme::of(QApplication::palette()) == &ui::Theme::dark(); }

TEST(DesktopColours, FollowsWhatTheDesktopPrefers) {
  PrivateBus bus;
  Desktop desktop(bus.connect("desktop"));
  desktop.scheme = 1;
  ASSERT_FALSE(isDark());
  {
    const ui::DesktopColours colours(bus.connect("program"));
    test::TestWindow::runUntil(isDark);
    desktop.prefer(2);
    test::TestWindow::runUntil([] { return !isDark(); });
    desktop.prefer(1);
    test::TestWindow::runUntil(isDark);
    desktop.prefer(0);  // the desktop's palette, which is light here
    test::TestWindow::runUntil([] { return !isDark(); });
  }
  EXPECT_FALSE(isDark());
}

}  // namespace
}  // namespace broomtide

#include "DesktopColoursTest.moc"
