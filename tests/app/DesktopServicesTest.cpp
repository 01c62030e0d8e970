#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QStringList>
#include <QVariantMap>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "app/PrivateBus.h"
#include "app/StoreScene.h"
#include "app/desktop/DBusFileManager.h"
#include "app/desktop/DBusLauncherEntry.h"
#include "app/desktop/DBusNotifications.h"
#include "app/desktop/DBusSleepInhibitor.h"

namespace ornivo::app {

/// A desktop that notes what it is asked for.
class FakeDesktop : public QObject {
    Q_OBJECT

public:
    std::vector<std::string> lines;
};

class FakeNotifications : public FakeDesktop {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public Q_SLOTS:
    uint Notify(const QString& program, uint replaces, const QString& icon, const QString& title,
                const QString& body, const QStringList& actions, const QVariantMap& hints,
                int timeout) {
        lines.push_back(QStringLiteral("%1 %2 %3 | %4 | %5 | %6 | %7 %8")
                            .arg(program)
                            .arg(replaces)
                            .arg(icon, title, body, actions.join(QLatin1Char('+')),
                                 hints[QStringLiteral("desktop-entry")].toString())
                            .arg(timeout)
                            .toStdString());
        return 7;
    }

Q_SIGNALS:
    void ActivationToken(uint id, const QString& token);
    void ActionInvoked(uint id, const QString& action);
};

class FakePortal : public FakeDesktop {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Inhibit")

public Q_SLOTS:
    QDBusObjectPath Inhibit(const QString&, uint flags, const QVariantMap& options) {
        lines.push_back(std::to_string(flags) + " " +
                        options[QStringLiteral("reason")].toString().toStdString());
        return QDBusObjectPath(QStringLiteral("/request"));
    }
};

class FakeRequest : public FakeDesktop {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

public Q_SLOTS:
    void Close() { lines.push_back("close"); }
};

class FakeLogind : public FakeDesktop {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")

public Q_SLOTS:
    QDBusUnixFileDescriptor Inhibit(const QString& what, const QString& who, const QString& why,
                                    const QString& mode) {
        lines.push_back((what + ' ' + who + ' ' + why + ' ' + mode).toStdString());
        QDBusUnixFileDescriptor lock;
        lock.giveFileDescriptor(std::exchange(lock_[1], -1));
        return lock;
    }

public:
    FakeLogind() { EXPECT_EQ(::pipe2(lock_.data(), O_CLOEXEC | O_NONBLOCK), 0); }
    ~FakeLogind() override { ::close(lock_[0]); }

    /// Whether nobody has the lock any more, which is the writing end of a pipe.
    bool isLetGo() const {
        char byte = 0;
        return ::read(lock_[0], &byte, 1) == 0;
    }

private:
    std::array<int, 2> lock_{};
};

class FakeFileManager : public FakeDesktop {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public Q_SLOTS:
    void ShowFolders(const QStringList& uris, const QString& startupID) {
        lines.push_back((uris.join(QLatin1Char(' ')) + '|' + startupID).toStdString());
    }
};

class FakeDock : public FakeDesktop {
    Q_OBJECT

public Q_SLOTS:
    void update(const QString& entry, const QVariantMap& properties) {
        lines.push_back(
            entry.toStdString() + " " +
            properties[QStringLiteral("progress")].toString().toStdString() +
            (properties[QStringLiteral("progress-visible")].toBool() ? " shown" : " hidden"));
    }
};

namespace {

using namespace ornivo::testing;
using Lines = std::vector<std::string>;

class DesktopServices : public ::testing::Test {
protected:
    void SetUp() override {
        if (!bus_) GTEST_SKIP() << "there is no dbus-daemon to start";
    }
    void serve(FakeDesktop& desktop, const char* service, const char* path) {
        auto connection = bus_->desktop();
        ASSERT_TRUE(connection.registerService(QString::fromLatin1(service)));
        share(desktop, path);
    }
    void share(FakeDesktop& desktop, const char* path) {
        auto connection = bus_->desktop();
        ASSERT_TRUE(connection.registerObject(
            QString::fromLatin1(path), &desktop,
            QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
    }
    static bool waitFor(const FakeDesktop& desktop, std::size_t lines) {
        return waitUntil([&] { return desktop.lines.size() >= lines; });
    }

    std::unique_ptr<PrivateBus> bus_ = PrivateBus::start();
};

TEST_F(DesktopServices, ANotificationReplacesTheLastOneAndCanBePressed) {
    FakeNotifications desktop;
    serve(desktop, "org.freedesktop.Notifications", "/org/freedesktop/Notifications");
    DBusNotifications notifications(bus_->program());
    std::vector<QByteArray> presses;
    notifications.show(QStringLiteral("Sort complete!"), QStringLiteral("a & <b>"),
                       [&](const QByteArray& token) { presses.push_back(token); });
    ASSERT_TRUE(waitFor(desktop, 1));
    EXPECT_EQ(desktop.lines[0],
              "Ornivo 0 org.ornivo.Ornivo | Sort complete! | a &amp; &lt;b&gt; | default+ | "
              "org.ornivo.Ornivo -1");
    // The answer with the number comes after the call.
    ASSERT_TRUE(waitUntil([&] {
        Q_EMIT desktop.ActivationToken(8, QStringLiteral("another's"));
        Q_EMIT desktop.ActionInvoked(8, QStringLiteral("default"));
        Q_EMIT desktop.ActionInvoked(7, QStringLiteral("other"));
        Q_EMIT desktop.ActionInvoked(7, QStringLiteral("default"));
        return !presses.empty();
    }));
    EXPECT_EQ(presses.front(), "") << "from a desktop that gives none";
    presses.clear();
    Q_EMIT desktop.ActivationToken(7, QStringLiteral("token"));
    Q_EMIT desktop.ActionInvoked(7, QStringLiteral("default"));
    ASSERT_TRUE(waitUntil([&] { return !presses.empty() && presses.back() == "token"; }));
    notifications.show(QStringLiteral("Again"), {}, [](const QByteArray&) {});
    ASSERT_TRUE(waitFor(desktop, 2));
    EXPECT_TRUE(desktop.lines[1].starts_with("Ornivo 7 ")) << desktop.lines[1];
}

TEST_F(DesktopServices, TheLauncherHearsOfProgress) {
    FakeDock dock;
    bus_->desktop().connect({}, {}, QStringLiteral("com.canonical.Unity.LauncherEntry"),
                            QStringLiteral("Update"), &dock, SLOT(update(QString, QVariantMap)));
    DBusLauncherEntry launcher(bus_->program());
    launcher.showProgress(0.25);
    launcher.hideProgress();
    ASSERT_TRUE(waitFor(dock, 2));
    EXPECT_EQ(dock.lines, (Lines{"application://org.ornivo.Ornivo.desktop 0.25 shown",
                                 "application://org.ornivo.Ornivo.desktop 0 hidden"}));
}

TEST_F(DesktopServices, ThePortalKeepsTheMachineAwakeUntilReleased) {
    FakePortal portal;
    FakeRequest request;
    serve(portal, "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop");
    share(request, "/request");
    DBusSleepInhibitor inhibitor(bus_->program(), bus_->program());
    inhibitor.hold(QStringLiteral("Sorting"));
    inhibitor.hold(QStringLiteral("Sorting"));
    ASSERT_TRUE(waitFor(portal, 1));
    inhibitor.release();
    ASSERT_TRUE(waitFor(request, 1)) << "also when the answer was still on its way";
    EXPECT_EQ(portal.lines, Lines{"4 Sorting"});
    EXPECT_EQ(request.lines, Lines{"close"});
}

TEST_F(DesktopServices, WithoutAPortalLogindKeepsItAwake) {
    FakeLogind logind;
    serve(logind, "org.freedesktop.login1", "/org/freedesktop/login1");
    DBusSleepInhibitor inhibitor(bus_->program(), bus_->program());
    inhibitor.hold(QStringLiteral("Sorting"));
    ASSERT_TRUE(waitFor(logind, 1));
    EXPECT_EQ(logind.lines, Lines{"sleep Ornivo Sorting block"});
    EXPECT_FALSE(logind.isLetGo());
    inhibitor.release();
    EXPECT_TRUE(waitUntil([&] { return logind.isLetGo(); }));
}

TEST_F(DesktopServices, TheFileManagerIsShownTheFolder) {
    FakeFileManager files;
    serve(files, "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1");
    DBusFileManager(bus_->program()).reveal("/Birds \xFF");
    ASSERT_TRUE(waitFor(files, 1));
    EXPECT_EQ(files.lines, Lines{"file:///Birds%20%FF|"});
}

TEST(DesktopServicesWithoutABus, AreSilent) {
    const QDBusConnection none(QStringLiteral("no such bus"));
    DBusNotifications notifications(none);
    DBusLauncherEntry launcher(none);
    DBusSleepInhibitor inhibitor(none, none);
    ::testing::internal::CaptureStderr();
    notifications.show(QStringLiteral("a"), QStringLiteral("b"), [](const QByteArray&) {});
    launcher.showProgress(0.5);
    launcher.hideProgress();
    inhibitor.hold(QStringLiteral("c"));
    QCoreApplication::processEvents();
    inhibitor.release();
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace ornivo::app

#include "DesktopServicesTest.moc"
