#include <QQmlProperty>
#include <QSignalSpy>
#include <QTimer>

#include "shell/services/service_sheets_fixture.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using Mode = UserDefaults::ReportMode;

// --- The welcome sheet

TEST_F(ServiceSheetsTest, WelcomeIsClosedOnceItWasDismissedBefore)
{
    QTest::qWait(20);
    EXPECT_FALSE(isOpen("welcome"));
}

TEST_F(ServiceSheetsTest, WelcomeOpensWhileItWasNotDismissedAndSaysItsWords)
{
    openWelcome();
    for (const char *text :
         {"Welcome to Corvane", "See what's filling your Mac and sweep it out safely.", "Map every byte",
          "An interactive map of your folders and files.", "Find the junk",
          "Caches, build folders, duplicates and forgotten big files.", "Safe by default",
          "Items go to the Trash, and system files are protected.", "Full Disk Access", "Waiting…",
          "Lets Corvane measure Mail, Safari, the Trash and app data, without asking folder by folder.", "Skip for Now",
          "Open System Settings"})
        EXPECT_TRUE(says(QString::fromUtf8(text))) << text;
    EXPECT_FALSE(says(QStringLiteral("Get Started")));
    EXPECT_NE(scene->named(QStringLiteral("Drag me into the Full Disk Access list"), QAccessible::Graphic), nullptr);
}

TEST_F(ServiceSheetsTest, StepsAreReadAloudWithoutTheirMarkup)
{
    openWelcome();
    EXPECT_NE(scene->named(QStringLiteral("Switch Corvane on. If macOS asks, choose Quit & Reopen."),
                           QAccessible::StaticText),
              nullptr);
}

TEST_F(ServiceSheetsTest, SheetsFollowLightAndDark)
{
    openWelcome();
    for (const bool dark : {false, true}) {
        Theme::instance()->setDark(dark);
        const QImage picture = scene->window()->grabWindow();
        const QObject *const sheet = scene->object("welcome");
        const int left = sheet->property("x").toInt();
        const int top = sheet->property("y").toInt();
        EXPECT_EQ(picture.pixelColor(left + 20, top + 40), Theme::instance()->raised());
        // A point in the card between its outline and its text.
        const QQuickItem *const status = scene->item("welcome.status");
        const QPoint card = status->mapToScene(QPointF(0, 0)).toPoint() - QPoint(40, 4);
        EXPECT_EQ(picture.pixelColor(card), Theme::instance()->window());
    }
}

TEST_F(ServiceSheetsTest, SkippingTheWelcomeDismissesItForGood)
{
    openWelcome();
    scene->click(scene->item("welcome.skip"));
    ASSERT_TRUE(waitForClosed("welcome"));
    EXPECT_TRUE(program.defaults.didOnboard());
}

TEST_F(ServiceSheetsTest, EscapeDismissesTheWelcomeForGood)
{
    openWelcome();
    scene->key(Qt::Key_Escape);
    ASSERT_TRUE(waitForClosed("welcome"));
    EXPECT_TRUE(program.defaults.didOnboard());
    EXPECT_TRUE(scene->item("before")->hasActiveFocus());
}

TEST_F(ServiceSheetsTest, ReturnOpensTheSystemsSettingsAndTheWelcomeStays)
{
    openWelcome();
    EXPECT_TRUE(scene->item("welcome.openSettings")->hasActiveFocus());
    scene->key(Qt::Key_Return);
    EXPECT_THAT(program.fake.log->linesStartingWith("openUrl"),
                ElementsAre("openUrl x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"));
    EXPECT_TRUE(isOpen("welcome"));
    EXPECT_FALSE(program.defaults.didOnboard());
}

TEST_F(ServiceSheetsTest, WelcomeShowsTheGrantAndHasNoMoreStepsThen)
{
    openWelcome();
    program.grantAccess();
    ASSERT_TRUE(QTest::qWaitFor([&] { return says(QStringLiteral("Granted")); }));
    EXPECT_TRUE(says(QStringLiteral("All set! Corvane can see your whole home folder.")));
    EXPECT_EQ(scene->named(QStringLiteral("Drag me into the Full Disk Access list"), QAccessible::Graphic), nullptr);
    scene->key(Qt::Key_Escape);
    ASSERT_TRUE(waitForClosed("welcome"));
}

TEST_F(ServiceSheetsTest, WelcomeOpensAgainWhenItIsAskedFor)
{
    openWelcome();
    scene->key(Qt::Key_Escape);
    ASSERT_TRUE(waitForClosed("welcome"));
    openWelcome();
}

TEST_F(ServiceSheetsTest, WelcomeWaitsForTheSheetThatIsOpen)
{
    scene->window()->setProperty("inTheWay", true);
    program.defaults.setDidOnboard(false);
    QTest::qWait(20);
    EXPECT_FALSE(isOpen("welcome"));
    scene->window()->setProperty("inTheWay", false);
    EXPECT_TRUE(waitForOpen("welcome"));
}

TEST_F(ServiceSheetsTest, OneSheetFollowsTheOther)
{
    openFeedback();
    program.crashReporter.setShowPrompt(true);
    program.defaults.setDidOnboard(false);
    QTest::qWait(20);
    EXPECT_FALSE(isOpen("welcome"));
    EXPECT_FALSE(isOpen("crashPrompt"));
    scene->key(Qt::Key_Escape);
    ASSERT_TRUE(waitForOpen("welcome"));
    EXPECT_FALSE(isOpen("crashPrompt"));
    scene->key(Qt::Key_Escape);
    EXPECT_TRUE(waitForOpen("crashPrompt"));
}

TEST_F(ServiceSheetsTest, AHiddenWindowThatShowsAgainStillHasItsWelcome)
{
    openWelcome();
    scene->window()->hide();
    QTest::qWait(20);
    EXPECT_FALSE(program.defaults.didOnboard()) << "closing the window dismisses nothing";
}

TEST_F(ServiceSheetsTest, TheIconShowsThatItCanBeDragged)
{
    openWelcome();
    QQuickItem *const icon =
        scene->named(QStringLiteral("Drag me into the Full Disk Access list"), QAccessible::Graphic);
    ASSERT_NE(icon, nullptr);
    EXPECT_FALSE(icon->property("hovering").toBool());
    scene->hover(icon);
    EXPECT_TRUE(QTest::qWaitFor([&] { return icon->property("hovering").toBool(); }));
    EXPECT_EQ(icon->property("applicationUrl").toString(),
              QUrl::fromLocalFile(QCoreApplication::applicationFilePath()).toString(QUrl::FullyEncoded));
}

TEST_F(ServiceSheetsTest, DraggingTheIconHandsOutTheAddressOfTheApplication)
{
    openWelcome();
    QQuickItem *const icon =
        scene->named(QStringLiteral("Drag me into the Full Disk Access list"), QAccessible::Graphic);
    ASSERT_NE(icon, nullptr);
    const QQmlProperty data(icon, QStringLiteral("Drag.mimeData"), qmlContext(icon));
    EXPECT_EQ(data.read().toMap().value(QStringLiteral("text/uri-list")), icon->property("applicationUrl"));

    QSignalSpy started(data.object(), SIGNAL(dragStarted()));
    QSignalSpy finished(data.object(), SIGNAL(dragFinished(Qt::DropAction)));
    ASSERT_TRUE(started.isValid() && finished.isValid());
    const QPoint centre = icon->mapToScene(QPointF(icon->width() / 2, icon->height() / 2)).toPoint();
    QTest::mousePress(scene->window(), Qt::LeftButton, Qt::NoModifier, centre);
    // A drag runs its own event loop, in which the button is released.
    QTimer::singleShot(50, scene->window(), [&] {
        QTest::mouseRelease(scene->window(), Qt::LeftButton, Qt::NoModifier, centre + QPoint(60, 0));
    });
    for (int step = 1; step <= 6; ++step)
        QTest::mouseMove(scene->window(), centre + QPoint(10 * step, 0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return started.size() == 1 && finished.size() == 1; }));
    EXPECT_TRUE(isOpen("welcome"));
}

TEST_F(ServiceSheetsOnLinuxTest, WelcomeHasOneButtonAndNoStepsAndNamesNoMac)
{
    openWelcome();
    EXPECT_TRUE(says(QStringLiteral("Granted"))) << "the home folder can be read";
    EXPECT_TRUE(says(QStringLiteral("Get Started")));
    EXPECT_FALSE(says(QStringLiteral("Skip for Now")));
    EXPECT_FALSE(says(QStringLiteral("Open System Settings")));
    EXPECT_EQ(scene->find([](QQuickItem *item) {
        const QString text = item->property("text").toString() + QuickScene::accessibleName(item);
        return text.contains(QStringLiteral("Mac")) || text.contains(QStringLiteral("Full Disk")) ||
               text.contains(QStringLiteral("Finder"));
    }),
              nullptr);
    scene->key(Qt::Key_Return);
    ASSERT_TRUE(waitForClosed("welcome"));
    EXPECT_TRUE(program.defaults.didOnboard());
}

// --- The feedback form

TEST_F(ServiceSheetsTest, FeedbackFormIsWorkedByKeyboardAndThanks)
{
    openFeedback();
    EXPECT_THAT(tabStops(scene->window(), 6),
                ElementsAre("Message", "E-mail", "Include app version, macOS version and Mac model", "Cancel", "Type",
                            "Message"))
        << "\"Send\" has nothing to send";
    scene->key(Qt::Key_Backtab);
    type(QStringLiteral("It hangs"));
    scene->key(Qt::Key_Return);
    type(QStringLiteral("often"));
    scene->key(Qt::Key_Tab);
    type(QStringLiteral("ada@example.org"));
    scene->key(Qt::Key_Backtab);
    scene->key(Qt::Key_Backtab);
    scene->key(Qt::Key_Right);
    scene->key(Qt::Key_Tab);
    scene->key(Qt::Key_Return, Qt::ControlModifier);

    ASSERT_TRUE(QTest::qWaitFor([&] { return says(QStringLiteral("We'll reply to ada@example.org")); }));
    EXPECT_EQ(posted().value(QStringLiteral("message")).toString(), QStringLiteral("It hangs\noften"));
    EXPECT_EQ(posted().value(QStringLiteral("email")).toString(), QStringLiteral("ada@example.org"));
    EXPECT_EQ(posted().value(QStringLiteral("category")).toString(), QStringLiteral("bug"));
    EXPECT_TRUE(posted().contains(QStringLiteral("info")));
    EXPECT_TRUE(scene->item("feedback.done")->hasActiveFocus());
    scene->key(Qt::Key_Return);
    ASSERT_TRUE(waitForClosed("feedback"));
    EXPECT_FALSE(program.store.showFeedback());
}

TEST_F(ServiceSheetsTest, ReturnInTheAddressSendsAndTheToggleLeavesTheFactsOut)
{
    openFeedback();
    type(QStringLiteral("x"));
    scene->click(scene->item("feedback.include"));
    scene->item("feedback.email")->forceActiveFocus();
    scene->key(Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return says(QStringLiteral("Thank you!")); }));
    EXPECT_EQ(program.server.requests().size(), 1u);
    EXPECT_FALSE(posted().contains(QStringLiteral("info")));
    EXPECT_FALSE(scene->item("feedback.thanks")->isVisible());
}

TEST_F(ServiceSheetsTest, FeedbackThatFailsSaysWhyAndKeepsItsText)
{
    program.server.answerAll({.status = 503, .body = "<html>"});
    openFeedback();
    EXPECT_FALSE(scene->item("feedback.send")->isEnabled());
    type(QStringLiteral("words"));
    EXPECT_TRUE(scene->item("feedback.send")->isEnabled());
    scene->click(scene->item("feedback.send"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return says(QStringLiteral("The server had a problem (503).")); }));
    EXPECT_NE(scene->named(QStringLiteral("The server had a problem (503)."), QAccessible::AlertMessage), nullptr);
    EXPECT_EQ(scene->object("feedback.message")->property("text").toString(), QStringLiteral("words"));
    EXPECT_TRUE(scene->item("feedback.send")->isEnabled());
    scene->key(Qt::Key_Escape);
    ASSERT_TRUE(waitForClosed("feedback"));
    EXPECT_FALSE(program.store.showFeedback());
}

TEST_F(ServiceSheetsTest, ALongAnswerOfTheServerStaysInsideTheForm)
{
    program.server.answerAll(
        {.status = 500, .body = "{\"error\": \"" + QByteArray("very long <b>words</b> ").repeated(60) + "\"}"});
    openFeedback();
    type(QStringLiteral("x"));
    scene->click(scene->item("feedback.send"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return scene->item("feedback.error")->isVisible(); }));
    scene->window()->grabWindow();
    const QQuickItem *const error = scene->item("feedback.error");
    const QQuickItem *const cancel = scene->item("feedback.cancel");
    EXPECT_LE(error->mapToScene(QPointF(error->width(), 0)).x(), cancel->mapToScene(QPointF()).x());
    EXPECT_EQ(error->property("lineCount").toInt(), 4);
    EXPECT_GE(error->mapToScene(QPointF()).y(), scene->item("feedback.include")->mapToScene(QPointF()).y());
}

TEST_F(ServiceSheetsTest, FeedbackHasItsLabelsRolesAndWords)
{
    openFeedback();
    for (const char *text : {"Send Feedback", "Bugs, ideas or questions. It goes straight to the developer.", "Type",
                             "💡 Idea", "🐞 Bug", "💬 Other", "Cancel", "Send"})
        EXPECT_TRUE(says(QString::fromUtf8(text))) << text;
    EXPECT_NE(scene->named(QStringLiteral("Message"), QAccessible::EditableText), nullptr);
    EXPECT_NE(scene->named(QStringLiteral("E-mail"), QAccessible::EditableText), nullptr);
    EXPECT_NE(scene->named(QStringLiteral("Type"), QAccessible::Grouping), nullptr);
    EXPECT_NE(scene->named(QStringLiteral("Include app version, macOS version and Mac model"), QAccessible::CheckBox),
              nullptr);
    EXPECT_NE(scene->named(QStringLiteral("Send Feedback"), QAccessible::Dialog), nullptr);
}

TEST_F(ServiceSheetsOnLinuxTest, TheChoiceBeneathTheFieldsIsNoWiderThanThey)
{
    openFeedback();
    EXPECT_LE(scene->item("feedback.include")->width(), scene->item("feedback.email")->width());
}

TEST_F(ServiceSheetsTest, TheFormCanBeClosedWhileItIsSentAndSaysThen)
{
    openFeedback();
    type(QStringLiteral("x"));
    scene->key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(scene->item("feedback.send")->property("busy").toBool());
    EXPECT_FALSE(scene->item("feedback.send")->isEnabled());
    scene->key(Qt::Key_Escape);
    ASSERT_TRUE(waitForClosed("feedback"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return program.store.toast().has_value(); }));
    EXPECT_EQ(program.server.requests().size(), 1u);
}

TEST_F(ServiceSheetsTest, AfterAFailureTheKeyboardIsBackInTheMessage)
{
    program.server.answerAll({.status = 500});
    openFeedback();
    type(QStringLiteral("x"));
    scene->key(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return scene->item("feedback.error")->isVisible(); }));
    type(QStringLiteral("y"));
    EXPECT_EQ(scene->object("feedback.message")->property("text").toString(), QStringLiteral("xy"));
}

// --- The question after a crash

TEST_F(ServiceSheetsTest, AnAccidentalReturnSendsNoCrashReport)
{
    openCrashPrompt();
    EXPECT_TRUE(says(QStringLiteral("Corvane quit unexpectedly")));
    EXPECT_TRUE(scene->item("crashPrompt.dontSend")->hasActiveFocus());
    scene->key(Qt::Key_Return);
    ASSERT_TRUE(waitForClosed("crashPrompt"));
    EXPECT_FALSE(program.crashReporter.showPrompt());
    QTest::qWait(20);
    EXPECT_EQ(program.server.connections(), 0);
    EXPECT_EQ(program.defaults.crashReportMode(), Mode::ask);
}

TEST_F(ServiceSheetsTest, EscapeSendsNoCrashReport)
{
    openCrashPrompt();
    scene->key(Qt::Key_Escape);
    ASSERT_TRUE(waitForClosed("crashPrompt"));
    EXPECT_FALSE(program.crashReporter.showPrompt());
    EXPECT_EQ(program.server.connections(), 0);
}

TEST_F(ServiceSheetsTest, SendReportSendsThisTimeOnly)
{
    openCrashPrompt();
    scene->click(scene->item("crashPrompt.send"));
    ASSERT_TRUE(waitForClosed("crashPrompt"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !program.server.requests().empty(); }));
    EXPECT_EQ(program.server.requests()[0].path, "/api/crash");
    EXPECT_EQ(posted().value(QStringLiteral("reportName")).toString(), QStringLiteral("corvane-1.ips"));
    EXPECT_EQ(program.defaults.crashReportMode(), Mode::ask);
    EXPECT_FALSE(program.crashReporter.showPrompt());
}

TEST_F(ServiceSheetsTest, AlwaysSendSendsFromNowOn)
{
    openCrashPrompt();
    scene->click(scene->item("crashPrompt.always"));
    ASSERT_TRUE(waitForClosed("crashPrompt"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !program.server.requests().empty(); }));
    EXPECT_EQ(program.defaults.crashReportMode(), Mode::always);
}

TEST_F(ServiceSheetsTest, CrashPromptIsWorkedByKeyboard)
{
    openCrashPrompt();
    EXPECT_THAT(tabStops(scene->window(), 4), ElementsAre("Don't Send", "Send Report", "Always Send", "Don't Send"));
}

} // namespace
} // namespace corvane
