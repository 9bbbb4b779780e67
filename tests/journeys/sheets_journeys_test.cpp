#include <QGuiApplication>
#include <QTimer>

#include "journeys/journey.h"

namespace corvane {
namespace {

/// Sheets over the window, and quitting the program while one is open.
class SheetsJourney : public Journey {
protected:
    [[nodiscard]] bool isOpen(const char *sheet)
    {
        const QObject *const made = window().findChild<QObject *>(QLatin1String(sheet));
        return made != nullptr && made->property("visible").toBool();
    }
    [[nodiscard]] bool hasKeyboard(const char *button)
    {
        const QQuickItem &item = driver().item(QLatin1String(button));
        return item.hasActiveFocus() || item.isAncestorOf(window().activeFocusItem());
    }
    void crashed() const
    {
        folder().writeText("home/Library/Logs/DiagnosticReports/" +
                               QCoreApplication::applicationFilePath().section(QLatin1Char('/'), -1).toStdString() +
                               "-1.ips",
                           "signal 11");
        setDefault("crashReportLastCheck", "2020-01-01T00:00:00.000Z");
    }
    /// Whether `done` makes the program, run as in main(), end soon.
    [[nodiscard]] static bool endsWhen(const std::function<void()> &done)
    {
        constexpr int stillRuns = 3;
        QTimer::singleShot(0, qGuiApp, done);
        QTimer patience;
        QObject::connect(&patience, &QTimer::timeout, qGuiApp, [] { QCoreApplication::exit(stillRuns); });
        patience.start(1'000);
        return QGuiApplication::exec() != stillRuns;
    }
    [[nodiscard]] QQuickWindow &openSettings()
    {
        press(Qt::Key_Comma, Qt::ControlModifier);
        auto &settings = *window().findChild<QQuickWindow *>(QStringLiteral("settings"));
        waitUntil([&] { return QGuiApplication::focusWindow() == &settings; }, QStringLiteral("the settings"));
        return settings;
    }
};

TEST_F(SheetsJourney, TheWindowBehindTheWelcomeStopsMoving)
{
    launch();
    waitForPopup(QStringLiteral("welcome"));
    driver().rest();
}

TEST_F(SheetsJourney, ClosingTheWindowQuitsWhileTheSettingsAreOpenToo)
{
    open();
    QQuickWindow &settings = openSettings();
    EXPECT_TRUE(endsWhen([&] { window().close(); }));
    EXPECT_FALSE(settings.isVisible());
}

TEST_F(SheetsJourney, ClosingTheSettingsDoesNotQuit)
{
    open();
    QQuickWindow &settings = openSettings();
    EXPECT_FALSE(endsWhen([&] { settings.close(); }));
    EXPECT_TRUE(window().isVisible());
}

TEST_F(SheetsJourney, TheKeyThatQuitsDoesSo)
{
    open();
    EXPECT_TRUE(endsWhen([&] { press(Qt::Key_Q, Qt::ControlModifier); }));
}

TEST_F(SheetsJourney, TheKeyThatQuitsDoesSoOverASheet)
{
    launch();
    waitForPopup(QStringLiteral("welcome"));
    EXPECT_TRUE(endsWhen([&] { press(Qt::Key_Q, Qt::ControlModifier); }));
}

TEST_F(SheetsJourney, TheKeyThatQuitsDoesSoInTheSettings)
{
    open();
    QQuickWindow &settings = openSettings();
    EXPECT_TRUE(endsWhen([&] { WindowDriver(settings).press(Qt::Key_Q, Qt::ControlModifier); }));
}

TEST_F(SheetsJourney, SimultaneousSheetsAreShownOneAfterAnother)
{
    crashed();
    launch();
    waitForPopup(QStringLiteral("welcome"));
    store().setShowFeedback(true);
    driver().rest();
    EXPECT_FALSE(isOpen("crashPrompt"));
    EXPECT_FALSE(isOpen("feedback"));

    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("welcome"));
    waitForPopup(QStringLiteral("crashPrompt"));
    EXPECT_FALSE(isOpen("feedback"));
    EXPECT_TRUE(hasKeyboard("crashPrompt.dontSend"));
    press(Qt::Key_Return);
    waitForPopupClosed(QStringLiteral("crashPrompt"));
    waitForPopup(QStringLiteral("feedback"));
    EXPECT_TRUE(hasKeyboard("feedback.message"));
    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("feedback"));
    press(Qt::Key_Tab);
    EXPECT_TRUE(window().activeFocusItem()->isVisible()) << "the keyboard is back in the window";
}

TEST_F(SheetsJourney, AMenuThatIsOpenMakesWayForASheet)
{
    open();
    press(Qt::Key_F10);
    waitForPopup(QStringLiteral("appMenu"));
    services().crashReporter()->setShowPrompt(true);
    waitForPopup(QStringLiteral("crashPrompt"));
    EXPECT_FALSE(isOpen("appMenu"));
    EXPECT_TRUE(hasKeyboard("crashPrompt.dontSend"));
    press(Qt::Key_Return);
    waitForPopupClosed(QStringLiteral("crashPrompt"));
    press(Qt::Key_F10);
    waitForPopup(QStringLiteral("appMenu"));
}

} // namespace
} // namespace corvane
