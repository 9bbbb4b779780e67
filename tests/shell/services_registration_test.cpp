#include "shell/ui/services_registration.h"

#include <memory>

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "platform/host.h"
#include "shell/fake_update_controller.h"
#include "shell/quick_scene.h"

namespace corvane {
namespace {

struct ServicesRegistrationTest : testing::Test {
    ServicesRegistrationTest() { ServicesRegistration::setServices(&services); }

    const QTemporaryDir folder;
    UserDefaults defaults{
        std::make_unique<QSettings>(folder.filePath(QStringLiteral("settings.conf")), QSettings::IniFormat)};
    API api{QUrl(QStringLiteral("https://corvane.example/"))};
    CrashReporter crashReporter{defaults, api, systemHost().files, {.folders = {}, .executable = "corvane"}};
    AppUpdater updater{std::make_unique<FakeUpdateController>(), false};
    Services services{defaults, api, crashReporter, updater};
};

TEST_F(ServicesRegistrationTest, QmlSeesTheServicesThatWereSet)
{
    defaults.setDidOnboard(true);
    const QuickScene scene("property bool did: Services.defaults.didOnboard\n"
                           "property bool asks: Services.crashReporter.showPrompt\n"
                           "property bool updates: Services.updater.isConfigured");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    EXPECT_TRUE(scene.window()->property("did").toBool());
    EXPECT_FALSE(scene.window()->property("asks").toBool());
    EXPECT_FALSE(scene.window()->property("updates").toBool());

    crashReporter.setShowPrompt(true);
    EXPECT_TRUE(scene.window()->property("asks").toBool());
}

TEST_F(ServicesRegistrationTest, QmlReadsAndSetsTheReportModeByItsName)
{
    const QuickScene scene("property bool asks: Services.defaults.crashReportMode === UserDefaults.ReportMode.ask\n"
                           "Component.onCompleted: Services.defaults.crashReportMode = UserDefaults.ReportMode.never");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    EXPECT_EQ(defaults.crashReportMode(), UserDefaults::ReportMode::never);
    EXPECT_FALSE(scene.window()->property("asks").toBool());
}

TEST_F(ServicesRegistrationTest, ServicesOutliveTheEngine)
{
    bool destroyed = false;
    QObject::connect(&services, &QObject::destroyed, &services, [&destroyed] { destroyed = true; });
    {
        const QuickScene scene("property bool did: Services.defaults.didOnboard");
        ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    }
    EXPECT_FALSE(destroyed);
}

} // namespace
} // namespace corvane
