#include "shell/app_updater.h"

#include <gtest/gtest.h>

#include <QSettings>

#include "shell/fake_update_controller.h"
#include "shell/update_system.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

struct Updating {
    explicit Updating(const char *key = "key", const char *feed = "https://updates.example/feed.xml")
        : updater(std::unique_ptr<UpdateController>(controller),
                  AppUpdater::isConfigured(QString::fromLatin1(key), QString::fromLatin1(feed)))
    {
    }

    FakeUpdateController *const controller = new FakeUpdateController;
    AppUpdater updater;
};

void expectOff(const char *key, const char *feed)
{
    Updating off(key, feed);
    EXPECT_FALSE(off.updater.isConfigured());
    EXPECT_FALSE(off.updater.canCheckForUpdates());
    off.updater.checkForUpdates();
    off.updater.setAutomaticallyChecksForUpdates(true);
    off.updater.setAutomaticallyDownloadsUpdates(true);
    off.controller->setCanCheck(true);
    EXPECT_FALSE(off.updater.canCheckForUpdates());
    EXPECT_FALSE(off.updater.automaticallyChecksForUpdates());
    EXPECT_EQ(off.controller->starts, 0) << "the feed could be contacted";
    EXPECT_EQ(off.controller->checks, 0) << "the feed could be contacted";
    EXPECT_EQ(off.controller->settings, 0);
}

TEST(AppUpdater, PlaceholderKeyNeverContactsTheFeed)
{
    expectOff("REPLACE_WITH_PUBLIC_KEY", "https://updates.example/feed.xml");
    expectOff("REPLACE", "https://updates.example/feed.xml");
}

TEST(AppUpdater, MissingFeedAloneTurnsUpdatesOff)
{
    expectOff("key", "");
}

TEST(AppUpdater, MissingKeyAloneTurnsUpdatesOff)
{
    expectOff("", "https://updates.example/feed.xml");
    expectOff("", "");
}

TEST(AppUpdater, KeyThatHoldsThePlaceholderElsewhereIsAKey)
{
    EXPECT_TRUE(AppUpdater::isConfigured(QStringLiteral("kREPLACE"), QStringLiteral("f")));
    EXPECT_TRUE(AppUpdater::isConfigured(QStringLiteral("replace"), QStringLiteral("f")));
}

TEST(AppUpdater, ConfiguredOneStartsItsControllerOnce)
{
    const Updating on;
    EXPECT_TRUE(on.updater.isConfigured());
    EXPECT_EQ(on.controller->starts, 1);
    EXPECT_EQ(on.controller->checks, 0);
}

TEST(AppUpdater, WhetherItCanCheckFollowsTheController)
{
    Updating on;
    int changes = 0;
    QObject::connect(&on.updater, &AppUpdater::canCheckForUpdatesChanged, [&] { ++changes; });
    EXPECT_TRUE(on.updater.canCheckForUpdates());
    on.controller->setCanCheck(false);
    EXPECT_FALSE(on.updater.canCheckForUpdates());
    emit on.controller->canCheckForUpdatesChanged();
    EXPECT_EQ(changes, 1);
    on.updater.checkForUpdates();
    EXPECT_EQ(on.controller->checks, 0);
    on.controller->setCanCheck(true);
    on.updater.checkForUpdates();
    EXPECT_EQ(on.controller->checks, 1);
}

TEST(AppUpdater, SettingsAreTheControllers)
{
    Updating on;
    on.controller->checksAutomatically = false;
    int changes = 0;
    QObject::connect(&on.updater, &AppUpdater::settingsChanged, [&] { ++changes; });
    on.updater.setAutomaticallyChecksForUpdates(true);
    on.updater.setAutomaticallyDownloadsUpdates(true);
    EXPECT_TRUE(on.controller->checksAutomatically && on.controller->installsAutomatically);
    EXPECT_EQ(changes, 2);
    on.controller->checksAutomatically = false;
    emit on.controller->settingsChanged();
    EXPECT_FALSE(on.updater.automaticallyChecksForUpdates());
    EXPECT_EQ(changes, 3);
}

TEST(AppUpdater, BuildWithoutSettingsOfItsOwnHasNoUpdates)
{
    const UpdateConfiguration configuration = UpdateConfiguration::ofThisBuild();
    if (!configuration.feedUrl.isEmpty())
        GTEST_SKIP() << "this build has the feed " << qPrintable(configuration.feedUrl);
    const TemporaryFolder folder;
    UserDefaults defaults(
        std::make_unique<QSettings>(QString::fromStdString(folder / "corvane.conf"), QSettings::IniFormat));
    const AppUpdater updater(makeUpdateController(configuration, defaults),
                             AppUpdater::isConfigured(configuration.publicKey, configuration.feedUrl));
    EXPECT_FALSE(updater.isConfigured());
    EXPECT_FALSE(updater.canCheckForUpdates());
}

} // namespace
} // namespace corvane
