#include "shell/ui/services_registration.h"

#include <QPointer>

#include <gtest/gtest.h>

#include "shell/fake_services.h"
#include "shell/quick_scene.h"

namespace corvane {
namespace {

struct ServicesRegistrationTest : testing::Test, FakeServices {
    ServicesRegistrationTest() : FakeServices({.canUpdate = false}) {}
};

TEST_F(ServicesRegistrationTest, QmlSeesTheServicesThatWereSet)
{
    defaults.setDidOnboard(true);
    const QuickScene scene("property bool did: Services.defaults.didOnboard\n"
                           "property bool asks: Services.crashReporter.showPrompt\n"
                           "property bool updates: Services.updater.canCheckForUpdates");
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
    const QPointer<Services> alive(&services);
    {
        const QuickScene scene("property bool did: Services.defaults.didOnboard");
        ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    }
    EXPECT_TRUE(alive);
}

TEST_F(ServicesRegistrationTest, WithoutServicesNoPresenterIsMade)
{
    ServicesRegistration::setServices(nullptr);
    EXPECT_DEATH(static_cast<void>(ServicesRegistration::services()), "setServices was not called");
}

} // namespace
} // namespace corvane
