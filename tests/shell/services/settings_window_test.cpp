#include <QGuiApplication>

#include "shell/services/service_sheets_fixture.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using Mode = UserDefaults::ReportMode;

class SettingsWindowTest : public ServiceSheetsTest {
protected:
    explicit SettingsWindowTest(bool canUpdate = true, bool onMac = true) : ServiceSheetsTest(canUpdate, onMac) {}

    void SetUp() override
    {
        ServiceSheetsTest::SetUp();
        ASSERT_EQ(scene->object("settings"), nullptr) << "made when it is first opened";
        ASSERT_TRUE(openSettings());
    }

    [[nodiscard]] bool openSettings()
    {
        QMetaObject::invokeMethod(scene->object("sheets"), "openSettings");
        settings = qobject_cast<QQuickWindow *>(scene->object("settings"));
        // A window counts as active while its transient parent is.
        return QTest::qWaitFor([this] { return QGuiApplication::focusWindow() == settings; });
    }

    void click(const char *name)
    {
        settings->grabWindow(); // forces layout
        const QQuickItem *const item = settings->findChild<QQuickItem *>(QLatin1String(name));
        ASSERT_NE(item, nullptr) << name;
        QTest::mouseClick(settings, Qt::LeftButton, Qt::NoModifier,
                          item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint());
    }
    [[nodiscard]] std::vector<std::string> texts() const
    {
        std::vector<std::string> found;
        for (const QQuickItem *item : settings->findChildren<QQuickItem *>()) {
            if (item->isVisible() && item->property("textFormat").isValid() &&
                !item->property("text").toString().isEmpty())
                found.push_back(item->property("text").toString().toStdString());
        }
        return found;
    }

    QQuickWindow *settings = nullptr;
};

class SettingsWindowOfADevelopmentBuildTest : public SettingsWindowTest {
protected:
    SettingsWindowOfADevelopmentBuildTest() : SettingsWindowTest(false) {}
};

class SettingsWindowOnLinuxTest : public SettingsWindowTest {
protected:
    SettingsWindowOnLinuxTest() : SettingsWindowTest(true, false) {}
};

TEST_F(SettingsWindowTest, BelongsToTheMainWindowAndHasItsSize)
{
    EXPECT_EQ(settings->title(), QStringLiteral("Settings"));
    EXPECT_EQ(settings->transientParent(), scene->window());
    EXPECT_EQ(settings->width(), 580);
    const double content = settings->contentItem()->childItems().constFirst()->implicitHeight();
    EXPECT_EQ(settings->height(), content) << "nothing is cut off and nothing left empty";
    EXPECT_EQ(settings->minimumSize(), settings->maximumSize());
    EXPECT_LE((settings->geometry().center() - scene->window()->geometry().center()).manhattanLength(), 2);
}

TEST_F(SettingsWindowTest, ShowsEverySetting)
{
    EXPECT_THAT(texts(), testing::IsSupersetOf({"Updates", "Check for updates automatically",
                                                "Download and install updates automatically", "Check for Updates…",
                                                "Crash Reports", "When Corvane crashes", "Ask me", "Privacy Policy",
                                                "Setup", "Full Disk Access", "Not granted", "Welcome & Permissions…",
                                                "Help", "Questions, bugs or ideas", "Send Feedback…"}));
    EXPECT_THAT(texts(), testing::Not(testing::Contains("Updates are turned off in this development build.")));
    EXPECT_THAT(texts(), testing::Contains(testing::StartsWith("Version ")));
    EXPECT_THAT(texts(), testing::Contains(testing::HasSubstr("sent only to 127.0.0.1 to fix bugs.")));
}

TEST_F(SettingsWindowOfADevelopmentBuildTest, HasTheLineInPlaceOfTheControls)
{
    EXPECT_THAT(texts(), testing::Contains("Updates are turned off in this development build."));
    EXPECT_THAT(texts(), testing::Contains(testing::StartsWith("Version ")));
    for (const char *text :
         {"Check for updates automatically", "Download and install updates automatically", "Check for Updates…"})
        EXPECT_THAT(texts(), testing::Not(testing::Contains(text)));
}

TEST_F(SettingsWindowOnLinuxTest, NamesNoMac)
{
    for (const char *word : {"Mac", "Full Disk Access", "Finder"})
        EXPECT_THAT(texts(), testing::Not(testing::Contains(testing::HasSubstr(word))));
    EXPECT_THAT(texts(), testing::Contains("Granted"));
}

TEST_F(SettingsWindowTest, TabLeadsThroughEveryControl)
{
    QTest::keyClick(settings, Qt::Key_Tab);
    EXPECT_THAT(tabStops(settings, 7),
                ElementsAre("Check for updates automatically", "Download and install updates automatically",
                            "Check for Updates…", "When Corvane crashes", "Privacy Policy", "Welcome & Permissions…",
                            "Send Feedback…"));
}

TEST_F(SettingsWindowOnLinuxTest, PromisesNoInstallation)
{
    EXPECT_THAT(texts(), testing::Contains("Download updates automatically"));
    QTest::keyClick(settings, Qt::Key_Tab);
    EXPECT_THAT(tabStops(settings, 2),
                ElementsAre("Check for updates automatically", "Download updates automatically"));
}

TEST_F(SettingsWindowTest, SpaceTurnsTheSwitches)
{
    QTest::keyClick(settings, Qt::Key_Tab);
    QTest::keyClick(settings, Qt::Key_Space);
    EXPECT_FALSE(program.updateController->checksAutomatically);
    QTest::keyClick(settings, Qt::Key_Tab);
    QTest::keyClick(settings, Qt::Key_Space);
    EXPECT_TRUE(program.updateController->installsAutomatically);
    click("settings.checks");
    EXPECT_TRUE(program.updateController->checksAutomatically);
}

TEST_F(SettingsWindowTest, TheModeOfCrashReportsIsChosenByKeyboard)
{
    settings->findChild<QQuickItem *>(QStringLiteral("settings.crashChoice"))->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(settings, Qt::Key_Down);
    QTest::keyClick(settings, Qt::Key_Down);
    EXPECT_EQ(program.defaults.crashReportMode(), Mode::never);
    program.defaults.setCrashReportMode(Mode::always);
    EXPECT_EQ(settings->findChild<QQuickItem *>(QStringLiteral("settings.crashChoice"))->property("displayText"),
              QStringLiteral("Send the report automatically"));
}

TEST_F(SettingsWindowTest, EscapeAndItsKeyCloseIt)
{
    QTest::keyClick(settings, Qt::Key_Escape);
    EXPECT_FALSE(settings->isVisible());
    EXPECT_TRUE(scene->window()->isVisible());
    ASSERT_TRUE(openSettings());
    QTest::keyClick(settings, Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(settings->isVisible());
}

TEST_F(SettingsWindowTest, EscapeClosesOnlyTheOpenListOfChoices)
{
    QQuickItem *const choice = settings->findChild<QQuickItem *>(QStringLiteral("settings.crashChoice"));
    choice->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(settings, Qt::Key_Return);
    const auto isListOpen = [&] { return choice->property("popup").value<QObject *>()->property("visible").toBool(); };
    ASSERT_TRUE(QTest::qWaitFor(isListOpen));
    QTest::keyClick(settings, Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !isListOpen(); }));
    EXPECT_TRUE(settings->isVisible());
    EXPECT_EQ(program.defaults.crashReportMode(), Mode::ask);
}

TEST_F(SettingsWindowTest, WhatIsShownInTheMainWindowBringsItToTheFront)
{
    click("settings.welcome");
    EXPECT_FALSE(settings->isVisible());
    ASSERT_TRUE(waitForOpen("welcome"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(scene->window()));
    scene->key(Qt::Key_Escape);
    ASSERT_TRUE(waitForClosed("welcome"));

    ASSERT_TRUE(openSettings());
    click("settings.feedback");
    EXPECT_FALSE(settings->isVisible());
    EXPECT_TRUE(waitForOpen("feedback"));
}

TEST_F(SettingsWindowTest, ChecksForUpdatesAndLeadsToThePrivacyPolicy)
{
    click("settings.privacy");
    EXPECT_EQ(scene->window()->property("policies").toInt(), 1);
    click("settings.checkNow");
    EXPECT_EQ(program.updateController->checks, 1);
}

TEST_F(SettingsWindowTest, ButtonIsOffWhileACheckRuns)
{
    program.updateController->setCanCheck(false);
    EXPECT_FALSE(settings->findChild<QQuickItem *>(QStringLiteral("settings.checkNow"))->isEnabled());
}

TEST_F(SettingsWindowTest, SaysWhetherTheAccessIsGranted)
{
    QTest::keyClick(settings, Qt::Key_Escape);
    program.grantAccess();
    ASSERT_TRUE(openSettings());
    EXPECT_THAT(texts(), testing::Contains("Granted"));
}

} // namespace
} // namespace corvane
