#include "shell/updates/feed_controller.h"

#include <gtest/gtest.h>

#include "shell/updates/update_server.h"

namespace corvane {
namespace {

using Phase = UpdateState::Phase;

constexpr qint64 day = 24 * 60 * 60;

struct FeedControllerTest : testing::Test, UpdateServer {
    FeedControllerTest() { makeController(); }

    void makeController()
    {
        controller = std::make_unique<FeedController>(
            options(), defaults, FeedController::Clock{[this] { return now; }, std::chrono::milliseconds(5)});
    }
    [[nodiscard]] int checks() const { return requests("/feed.xml"); }
    [[nodiscard]] bool waitForChecks(int count) const
    {
        return QTest::qWaitFor([&] { return checks() == count; }, 30'000);
    }
    [[nodiscard]] QVariant stored(const char *name) { return defaults.settings().value(QLatin1String(name)); }

    QDateTime now{QDate(2026, 11, 22), QTime(12, 0), Qt::UTC};
    const TemporaryFolder configuration;
    UserDefaults defaults{
        std::make_unique<QSettings>(QString::fromStdString(configuration / "corvane.conf"), QSettings::IniFormat)};
    std::unique_ptr<FeedController> controller;
};

TEST_F(FeedControllerTest, AsksNothingUntilTheUserTurnsItOn)
{
    controller->start();
    QTest::qWait(50);
    EXPECT_EQ(server.connections(), 0);
    EXPECT_FALSE(controller->automaticallyChecksForUpdates());
    EXPECT_FALSE(controller->automaticallyDownloadsUpdates());
    EXPECT_FALSE(stored("SULastCheckTime").isValid());
}

TEST_F(FeedControllerTest, AsksNothingBeforeItIsStarted)
{
    controller->setAutomaticallyChecksForUpdates(true);
    controller->checkForUpdates();
    QTest::qWait(50);
    EXPECT_FALSE(controller->canCheckForUpdates());
    EXPECT_EQ(server.connections(), 0);
}

TEST_F(FeedControllerTest, SettingsAreKeptUnderTheFrameworksKeys)
{
    controller->setAutomaticallyChecksForUpdates(true);
    controller->setAutomaticallyDownloadsUpdates(true);
    EXPECT_EQ(stored("SUEnableAutomaticChecks").toString(), QStringLiteral("true"));
    EXPECT_EQ(stored("SUAutomaticallyUpdate").toString(), QStringLiteral("true"));
    makeController();
    EXPECT_TRUE(controller->automaticallyChecksForUpdates());
    EXPECT_TRUE(controller->automaticallyDownloadsUpdates());
    controller->setAutomaticallyChecksForUpdates(false);
    EXPECT_FALSE(controller->automaticallyChecksForUpdates());
}

TEST_F(FeedControllerTest, ChecksAtTheStartWhereThatIsDue)
{
    controller->setAutomaticallyChecksForUpdates(true);
    controller->start();
    EXPECT_TRUE(waitForChecks(1));
    EXPECT_EQ(defaults.moment(QStringLiteral("SULastCheckTime")), now);
}

TEST_F(FeedControllerTest, DoesNotCheckAtTheStartWithinADayOfTheLastCheck)
{
    defaults.setMoment(QStringLiteral("SULastCheckTime"), now.addSecs(-day + 1));
    controller->setAutomaticallyChecksForUpdates(true);
    controller->start();
    QTest::qWait(50);
    EXPECT_EQ(checks(), 0);
    now = now.addSecs(1);
    EXPECT_TRUE(waitForChecks(1));
}

TEST_F(FeedControllerTest, ChecksAgainADayLater)
{
    FeedItem same = item();
    same.build = "10000";
    publish(same);
    controller->setAutomaticallyChecksForUpdates(true);
    controller->start();
    ASSERT_TRUE(waitForChecks(1));
    ASSERT_TRUE(waitForPhase(*controller->session(), Phase::idle));
    now = now.addSecs(day - 1);
    QTest::qWait(50);
    EXPECT_EQ(checks(), 1);
    now = now.addSecs(1);
    EXPECT_TRUE(waitForChecks(2));
}

TEST_F(FeedControllerTest, LastCheckInTheFutureIsThatOfAnotherClock)
{
    defaults.setMoment(QStringLiteral("SULastCheckTime"), now.addYears(3));
    controller->setAutomaticallyChecksForUpdates(true);
    controller->start();
    EXPECT_TRUE(waitForChecks(1));
}

TEST_F(FeedControllerTest, TurningItOnChecksAtOnce)
{
    controller->start();
    controller->setAutomaticallyChecksForUpdates(true);
    EXPECT_TRUE(waitForChecks(1));
}

TEST_F(FeedControllerTest, FindIsNotReplacedByTheNextAutomaticCheck)
{
    controller->setAutomaticallyChecksForUpdates(true);
    controller->start();
    ASSERT_TRUE(waitForPhase(*controller->session(), Phase::available));
    now = now.addSecs(day);
    QTest::qWait(50);
    EXPECT_EQ(checks(), 1);
    EXPECT_EQ(controller->session()->state().phase, Phase::available);
}

TEST_F(FeedControllerTest, DownloadsBeforeItNotifiesWhereThatIsTurnedOn)
{
    controller->setAutomaticallyChecksForUpdates(true);
    controller->setAutomaticallyDownloadsUpdates(true);
    controller->start();
    EXPECT_TRUE(waitForPhase(*controller->session(), Phase::ready));
}

TEST_F(FeedControllerTest, CheckOfTheUserIsShownAndNoOtherCanStartMeanwhile)
{
    controller->start();
    EXPECT_TRUE(controller->canCheckForUpdates());
    int changes = 0;
    QObject::connect(controller.get(), &UpdateController::canCheckForUpdatesChanged, controller.get(),
                     [&] { ++changes; });
    controller->checkForUpdates();
    EXPECT_FALSE(controller->canCheckForUpdates());
    EXPECT_EQ(changes, 1);
    controller->checkForUpdates();
    ASSERT_TRUE(waitForPhase(*controller->session(), Phase::available));
    EXPECT_EQ(checks(), 1);
    controller->session()->end();
    EXPECT_TRUE(controller->canCheckForUpdates());
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(defaults.moment(QStringLiteral("SULastCheckTime")), now);
}

TEST_F(FeedControllerTest, UserWhoAsksDuringAnAutomaticCheckSeesIt)
{
    controller->setAutomaticallyChecksForUpdates(true);
    controller->start();
    ASSERT_TRUE(waitForPhase(*controller->session(), Phase::checking));
    EXPECT_TRUE(controller->canCheckForUpdates());
    controller->checkForUpdates();
    EXPECT_TRUE(controller->session()->state().isShown);
    EXPECT_FALSE(controller->canCheckForUpdates());
    ASSERT_TRUE(waitForPhase(*controller->session(), Phase::available));
    EXPECT_EQ(checks(), 1);
}

TEST_F(FeedControllerTest, SettingsThatCannotBeWrittenHoldForThisRun)
{
    UserDefaults unwritable(
        std::make_unique<QSettings>(QStringLiteral("/dev/null/corvane.conf"), QSettings::IniFormat));
    FeedController other(options(), unwritable, FeedController::Clock());
    other.setAutomaticallyDownloadsUpdates(true);
    EXPECT_TRUE(other.automaticallyDownloadsUpdates());
}

} // namespace
} // namespace corvane
