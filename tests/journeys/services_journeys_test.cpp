#include <filesystem>

#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest/QTest>

#include "journeys/journey.h"
#include "support/loopback_server.h"

namespace corvane {
namespace {

using testing::SizeIs;
using Ending = LoopbackAnswer::Ending;

class ServicesJourney : public Journey {
protected:
    ServicesJourney() { setSite(server.url()); }
    ~ServicesJourney() override { std::filesystem::remove_all(hiddenHome()); }

    [[nodiscard]] static bool onMac() { return systemHost().files.systemKind() == SystemKind::mac; }

    // --- Full disk access: on a Mac a file that can be opened, elsewhere the home folder.
    void refuseAccess() const
    {
        if (!onMac())
            std::filesystem::rename(home(), hiddenHome());
    }
    void grantAccess() const
    {
        if (onMac())
            folder().writeText("home/Library/Application Support/com.apple.TCC/TCC.db", "");
        else
            std::filesystem::rename(hiddenHome(), home());
    }

    // --- The sheets
    [[nodiscard]] bool isOpen(const char *sheet)
    {
        // Created when first opened.
        const QObject *const made = window().findChild<QObject *>(QLatin1String(sheet));
        return made != nullptr && made->property("visible").toBool();
    }
    void type(const QString &text)
    {
        for (const QChar letter : text)
            QTest::keyClick(&window(), letter.toLatin1());
    }
    void openFeedback()
    {
        open();
        chooseInMenu(QStringLiteral("appMenu.sendFeedback"));
        waitForPopup(QStringLiteral("feedback"));
    }
    void send(const QString &message)
    {
        type(message);
        click(QStringLiteral("feedback.send"));
    }
    [[nodiscard]] QJsonObject posted(std::size_t index = 0) const
    {
        return QJsonDocument::fromJson(server.requests().at(index).body).object();
    }

    // --- Crashes of earlier runs
    [[nodiscard]] std::string reportName(const std::string &when) const
    {
        return QCoreApplication::applicationFilePath().section(QLatin1Char('/'), -1).toStdString() + "-" + when +
               ".ips";
    }
    void crash(const std::string &when) const
    {
        folder().writeText("home/Library/Logs/DiagnosticReports/" + reportName(when), "signal 11 at " + when);
    }
    /// Sets the last check for reports to a date in the past.
    void lookedBefore() const { setDefault("crashReportLastCheck", "2020-01-01T00:00:00.000Z"); }
    void openAfterCrash()
    {
        crash("2026-11-20");
        lookedBefore();
        open();
        waitForPopup(QStringLiteral("crashPrompt"));
    }

    // --- The settings
    [[nodiscard]] QQuickWindow &settingsWindow()
    {
        return *window().findChild<QQuickWindow *>(QStringLiteral("settings"));
    }
    void openSettings()
    {
        press(Qt::Key_Comma, Qt::ControlModifier);
        waitUntil([&] { return isOpen("settings") && QGuiApplication::focusWindow() == &settingsWindow(); },
                  QStringLiteral("the settings"));
    }
    /// The settings as another process reads them: "didOnboard=true crashReportMode=never".
    [[nodiscard]] static std::string settingsOfAnotherProcess()
    {
        QProcess reader;
        reader.start(QCoreApplication::applicationDirPath() + QStringLiteral("/read_settings"), {});
        if (!reader.waitForFinished() || reader.exitCode() != 0)
            giveUp(QStringLiteral("the settings were not read: ") + reader.errorString());
        return reader.readAllStandardOutput().trimmed().toStdString();
    }

    LoopbackServer server;

private:
    [[nodiscard]] std::string hiddenHome() const { return folder() / "hidden home"; }
};

// --- The first launch

TEST_F(ServicesJourney, FirstLaunchWelcomesOnceAndNeverAgain)
{
    launch();
    waitForPopup(QStringLiteral("welcome"));
    EXPECT_TRUE(shows(QStringLiteral("Welcome to Corvane")));
    EXPECT_EQ(settingsOfAnotherProcess(), "didOnboard=false crashReportMode=ask");
    click(onMac() ? QStringLiteral("welcome.skip") : QStringLiteral("welcome.start"));
    waitForPopupClosed(QStringLiteral("welcome"));
    EXPECT_EQ(settingsOfAnotherProcess(), "didOnboard=true crashReportMode=ask");
    quit();

    for (int run = 0; run < 2; ++run) {
        launch();
        driver().rest();
        EXPECT_FALSE(isOpen("welcome"));
        quit();
    }
}

TEST_F(ServicesJourney, AccessThatIsGrantedWhileTheWelcomeIsOpenIsSeen)
{
    refuseAccess();
    launch();
    waitForPopup(QStringLiteral("welcome"));
    EXPECT_TRUE(shows(QStringLiteral("Waiting…")));
    EXPECT_FALSE(store().hasFullDiskAccess());
    grantAccess();
    waitForText(QStringLiteral("Granted"));
    EXPECT_TRUE(shows(QStringLiteral("All set! Corvane can see your whole home folder.")));
    EXPECT_TRUE(store().hasFullDiskAccess());
    EXPECT_FALSE(isShown(QStringLiteral("overview.accessGuide"))) << "the overview has nothing to warn of any more";
    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("welcome"));
    EXPECT_EQ(settingsOfAnotherProcess(), "didOnboard=true crashReportMode=ask");
}

TEST_F(ServicesJourney, QuittingWithTheWelcomeOpenShowsItAgain)
{
    launch();
    waitForPopup(QStringLiteral("welcome"));
    quit();
    launch();
    waitForPopup(QStringLiteral("welcome"));
}

TEST_F(ServicesJourney, TheWelcomeOpensAgainFromTheMenuAndFromTheSettings)
{
    open();
    chooseInMenu(QStringLiteral("appMenu.welcome"));
    waitForPopup(QStringLiteral("welcome"));
    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("welcome"));

    openSettings();
    WindowDriver settings(settingsWindow());
    settings.click(settings.item(QStringLiteral("settings.welcome")));
    waitForPopup(QStringLiteral("welcome"));
    EXPECT_FALSE(settingsWindow().isVisible());
}

// --- After a crash

TEST_F(ServicesJourney, SendReportSendsItAndIsAskedAgainAfterTheNextCrash)
{
    openAfterCrash();
    click(QStringLiteral("crashPrompt.send"));
    waitForPopupClosed(QStringLiteral("crashPrompt"));
    waitUntil([&] { return server.requests().size() == 1; }, QStringLiteral("the report"));
    EXPECT_EQ(server.requests()[0].path, "/api/crash");
    EXPECT_EQ(posted().value(QStringLiteral("report")).toString(), QStringLiteral("signal 11 at 2026-11-20"));
    EXPECT_EQ(posted().value(QStringLiteral("reportName")).toString().toStdString(), reportName("2026-11-20"));
    EXPECT_TRUE(posted().value(QStringLiteral("info")).isObject());
    quit();

    open();
    driver().rest();
    EXPECT_FALSE(isOpen("crashPrompt")) << "each report is offered once";
    quit();

    lookedBefore();
    crash("2026-11-21");
    open();
    waitForPopup(QStringLiteral("crashPrompt"));
}

TEST_F(ServicesJourney, AlwaysSendAsksNoMore)
{
    openAfterCrash();
    click(QStringLiteral("crashPrompt.always"));
    waitForPopupClosed(QStringLiteral("crashPrompt"));
    waitUntil([&] { return server.requests().size() == 1; }, QStringLiteral("the report"));
    EXPECT_EQ(settingsOfAnotherProcess(), "didOnboard=true crashReportMode=always");
    quit();

    lookedBefore();
    open();
    waitUntil([&] { return server.requests().size() == 2; }, QStringLiteral("the report, without a question"));
    EXPECT_FALSE(isOpen("crashPrompt"));
}

TEST_F(ServicesJourney, DontSendSendsNothingAndTheReportIsNotOfferedAgain)
{
    openAfterCrash();
    click(QStringLiteral("crashPrompt.dontSend"));
    waitForPopupClosed(QStringLiteral("crashPrompt"));
    quit();
    open();
    driver().rest();
    EXPECT_FALSE(isOpen("crashPrompt"));
    EXPECT_EQ(server.connections(), 0);
}

TEST_F(ServicesJourney, NeverAsksAndSendsNothing)
{
    setDefault("crashReportMode", "never");
    crash("2026-11-20");
    lookedBefore();
    open();
    driver().rest();
    EXPECT_FALSE(isOpen("crashPrompt"));
    EXPECT_EQ(server.connections(), 0);
}

TEST_F(ServicesJourney, ReportsFromBeforeTheFirstLaunchAreNeverOffered)
{
    crash("2026-11-20");
    launch();
    waitForPopup(QStringLiteral("welcome"));
    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("welcome"));
    driver().rest();
    EXPECT_FALSE(isOpen("crashPrompt"));
    EXPECT_EQ(server.connections(), 0);
}

// --- Feedback

TEST_F(ServicesJourney, FeedbackArrives)
{
    openFeedback();
    EXPECT_FALSE(driver().item(QStringLiteral("feedback.send")).isEnabled());
    type(QStringLiteral("A way to compare two scans"));
    press(Qt::Key_Tab);
    type(QStringLiteral("ada@example.org"));
    press(Qt::Key_Return);
    waitForText(QStringLiteral("We'll reply to ada@example.org"));
    ASSERT_THAT(server.requests(), SizeIs(1));
    EXPECT_EQ(server.requests()[0].path, "/api/feedback");
    EXPECT_EQ(server.requests()[0].headers.at("content-type"), "application/json");
    EXPECT_EQ(posted().value(QStringLiteral("message")).toString(), QStringLiteral("A way to compare two scans"));
    EXPECT_EQ(posted().value(QStringLiteral("category")).toString(), QStringLiteral("idea"));
    EXPECT_EQ(posted().value(QStringLiteral("source")).toString(), QStringLiteral("app"));
    press(Qt::Key_Return);
    waitForPopupClosed(QStringLiteral("feedback"));
}

TEST_F(ServicesJourney, FeedbackThatFailsSaysWhyInOneLineAndCanBeSentAgain)
{
    const QString unreachable = QStringLiteral("Couldn't reach the server.\nCheck your internet connection.");
    const std::vector<std::pair<LoopbackAnswer, QString>> failures{
        {{.status = 500, .body = R"({"error": "The inbox is full."})"}, QStringLiteral("The inbox is full.")},
        {{.status = 500, .body = "{}"}, QStringLiteral("The server had a problem (500).")},
        {{.status = 503, .body = "<html>busy</html>"}, QStringLiteral("The server had a problem (503).")},
        {{.status = 302, .headers = {{"Location", server.url(QStringLiteral("/elsewhere")).toEncoded()}}},
         QStringLiteral("The server had a problem (302).")},
        {{.body = "{}", .ending = Ending::cutShort}, unreachable},
        {{.ending = Ending::closed}, unreachable},
    };
    openFeedback();
    type(QStringLiteral("words"));
    for (const auto &[answer, line] : failures) {
        server.answerAll(answer);
        click(QStringLiteral("feedback.send"));
        waitForText(line);
        EXPECT_EQ(driver().item(QStringLiteral("feedback.message")).property("text").toString(),
                  QStringLiteral("words"));
    }
    server.answerAll({});
    click(QStringLiteral("feedback.send"));
    waitForText(QStringLiteral("Thank you!"));
    for (const LoopbackRequest &request : server.requests())
        EXPECT_EQ(request.path, "/api/feedback") << "a redirect is not followed";
}

TEST_F(ServicesJourney, FeedbackWithoutAServerSaysSo)
{
    setSite(QUrl(QStringLiteral("http://127.0.0.1:1/"))); // nothing listens there
    openFeedback();
    send(QStringLiteral("words"));
    waitForText(QStringLiteral("Couldn't reach the server.\nCheck your internet connection."));
}

TEST_F(ServicesJourney, FeedbackWhoseFormIsClosedMeanwhileArrivesAndIsConfirmed)
{
    openFeedback();
    type(QStringLiteral("words"));
    press(Qt::Key_Return, Qt::ControlModifier);
    press(Qt::Key_Escape);
    waitForToast();
    EXPECT_EQ(toast(), "Feedback sent. Thank you!");
    EXPECT_THAT(server.requests(), SizeIs(1));
}

// --- The settings

TEST_F(ServicesJourney, SettingsAreKeptAndReadByTheNextProcess)
{
    open();
    openSettings();
    WindowDriver settings(settingsWindow());
    settings.item(QStringLiteral("settings.crashChoice")).forceActiveFocus(Qt::TabFocusReason);
    settings.press(Qt::Key_Down);
    settings.press(Qt::Key_Down);
    EXPECT_EQ(settingsOfAnotherProcess(), "didOnboard=true crashReportMode=never");
    settings.press(Qt::Key_Escape);
    EXPECT_FALSE(settingsWindow().isVisible());
    quit();

    open();
    openSettings();
    WindowDriver again(settingsWindow());
    EXPECT_EQ(again.item(QStringLiteral("settings.crashChoice")).property("displayText").toString(),
              QStringLiteral("Never send"));
}

TEST_F(ServicesJourney, SettingsThatAreGarbageDoNotStopTheProgram)
{
    folder().writeText("config/Corvane/Corvane.conf", "\xff\xfe[General\ndidOnboard=perhaps\n\n==%%%");
    launch();
    waitForPopup(QStringLiteral("welcome"));
    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("welcome"));
}

TEST_F(ServicesJourney, SettingsLeadToTheFeedbackForm)
{
    open();
    openSettings();
    WindowDriver settings(settingsWindow());
    settings.click(settings.item(QStringLiteral("settings.feedback")));
    waitForPopup(QStringLiteral("feedback"));
    EXPECT_FALSE(settingsWindow().isVisible());
}

} // namespace
} // namespace corvane
