#include <optional>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <QProcess>
#include <QSignalSpy>

#include "journeys/held_listing.h"
#include "journeys/journey.h"
#include "main/running_program.h"
#include "shell/session_bus.h"

namespace corvane {
namespace {

/// Starts the program again while it is running.
class StartJourney : public Journey {
protected:
    void SetUp() override
    {
        if (!SessionBus::isInstalled())
            GTEST_SKIP() << "dbus-daemon is not installed";
        ASSERT_FALSE(m_bus.start().isEmpty());
        addFile("Photos, 100% mine/a.raw", 3);
        open();
        m_running.emplace([this](const StartRequest &request) { program().answer(request); });
    }
    void TearDown() override
    {
        m_running.reset();
        QDBusConnection::disconnectFromBus(QStringLiteral("qt_default_session_bus"));
    }

    /// The exit status of a second start; -1 on timeout.
    int startAnother(const QStringList &arguments)
    {
        QProcess other;
        other.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        other.start(QStringLiteral(CORVANE_PROGRAM), arguments);
        bool hasEnded = false;
        QObject::connect(&other, &QProcess::finished, [&] { hasEnded = true; });
        waitUntil([&] { return hasEnded; }, QStringLiteral("the other start's end"));
        other.kill();
        other.waitForFinished();
        return hasEnded ? other.exitCode() : -1;
    }
    /// Makes the D-Bus call of a desktop.
    QDBusPendingReply<> call(const QString &method, const QVariantList &arguments)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(QStringLiteral("app.corvane.Corvane"),
                                                              QStringLiteral("/app/corvane/Corvane"),
                                                              QStringLiteral("org.freedesktop.Application"), method);
        message.setArguments(arguments);
        QDBusPendingReply<> reply = QDBusConnection::sessionBus().asyncCall(message);
        waitUntil([&] { return reply.isFinished(); }, QStringLiteral("an answer"));
        return reply;
    }

    const std::string photos = at("Photos, 100% mine");

private:
    SessionBus m_bus;
    std::optional<RunningProgram> m_running;
};

TEST_F(StartJourney, ASecondStartHandsItsFolderOverAndEnds)
{
    EXPECT_EQ(startAnother({QString::fromStdString(photos)}), 0);
    waitUntil([&] { return isScanned(); }, QStringLiteral("the scan"));
    EXPECT_EQ(store().lastScanPath(), photos);
}

TEST_F(StartJourney, ASecondStartWithoutAFolderShowsTheWindowAndScansNothing)
{
    window().showMinimized();
    EXPECT_EQ(startAnother({}), 0);
    EXPECT_FALSE(window().windowStates().testFlag(Qt::WindowMinimized));
    EXPECT_EQ(store().phase(), StorageStore::Phase::idle);
}

TEST_F(StartJourney, AFolderThatDoesNotExistIsNotHandedOver)
{
    EXPECT_EQ(startAnother({QStringLiteral("/nope")}), 2);
    EXPECT_EQ(store().phase(), StorageStore::Phase::idle);
}

TEST_F(StartJourney, AFolderThatIsBeingScannedIsNotScannedAgain)
{
    HeldListing slow(photos);
    program().answer({.folder = photos, .activationToken = {}});
    waitUntil([&] { return slow.isReached(); }, QStringLiteral("a slow scan"));
    const QSignalSpy starts(&store(), &StorageStore::treeChanged);
    EXPECT_EQ(startAnother({QString::fromStdString(photos)}), 0);
    EXPECT_EQ(starts.size(), 0);
    slow.release();
    waitUntil([&] { return isScanned(); }, QStringLiteral("the scan"));
}

TEST_F(StartJourney, TheDesktopMayOpenAnAddressAndIsToldInTheWindowWhatIsWrong)
{
    EXPECT_FALSE(
        call(QStringLiteral("Open"), {QStringList{QStringLiteral("sftp://host/files")}, QVariantMap()}).isError());
    waitForToast();
    EXPECT_EQ(toast(),
              "sftp://host/files is not on a disk of this computer; mount it and give the folder where it is mounted");
}

TEST_F(StartJourney, AStartThatSeesAnotherDisplayOrDiskIsRefused)
{
    const QVariantMap elsewhere{{QStringLiteral("corvane-place"), QStringLiteral(":7")}};
    EXPECT_TRUE(call(QStringLiteral("Open"), {QStringList{QString::fromStdString(photos)}, elsewhere}).isError());
    EXPECT_EQ(store().phase(), StorageStore::Phase::idle);
}

} // namespace
} // namespace corvane
