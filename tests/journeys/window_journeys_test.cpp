#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QTimer>
#include <QtTest/QTest>

#include "journeys/held_listing.h"
#include "journeys/journey.h"
#include "shell/ui/theme.h"
#include "support/patience.h"

namespace corvane {
namespace {

class WindowJourney : public Journey {
protected:
    static constexpr int settled = 500; // milliseconds; the program saves its geometry after a short delay

    void openHome()
    {
        addFile("Projects/Exports/cut.mov", 4);
        addFile("Games/world.dat", 2);
        openAndScan();
    }
    /// Runs the program until its last window is closed or a timeout expires.
    int runUntilClosed()
    {
        QTimer::singleShot(0, &window(), &QWindow::close);
        QTimer::singleShot(patience, &window(), [] { QCoreApplication::exit(1); });
        return QGuiApplication::exec();
    }
    /// Saves the geometry as of an earlier run.
    static void remember(const QRect &place)
    {
        QSettings settings;
        settings.setValue(QStringLiteral("window.geometry"), place);
    }
    /// The colour of a pixel in the middle of the band above the sidebar.
    QColor bandColor() { return driver().picture().pixelColor(140, 4); }
};

TEST_F(WindowJourney, ClosingTheWindowEndsTheProgram)
{
    openHome();

    EXPECT_EQ(runUntilClosed(), 0);
}

TEST_F(WindowJourney, NothingIsMeasuredBeforeTheWindowIsDrawn)
{
    setDefault("didOnboard", "true");
    CorvaneApp program;
    ASSERT_TRUE(program.openWindow());
    EXPECT_FALSE(program.store().cleanupLoading());
    EXPECT_TRUE(program.store().breakdownLoading()) << "the overview waits for it";

    EXPECT_TRUE(QTest::qWaitFor([&] { return program.store().cleanupLoading(); }, 20'000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !program.store().breakdownLoading(); }, 20'000));
    EXPECT_TRUE(program.store().breakdown().has_value());
}

TEST_F(WindowJourney, ClosingTheWindowDuringAScanEndsTheProgram)
{
    addFile("Slow/Deeper/late.bin", 5);
    HeldListing slow(at("Slow"));
    openSpaceMap();
    click(QStringLiteral("scanButton"));
    waitUntil([&] { return slow.isReached(); }, QStringLiteral("a slow scan"));

    EXPECT_EQ(runUntilClosed(), 0);
    slow.release();
    quit();
}

TEST_F(WindowJourney, ItBearsTheProgramsName)
{
    openSpaceMap();

    EXPECT_EQ(window().title(), QStringLiteral("Corvane"));
    EXPECT_EQ(window().minimumSize(), QSize(1040, 660));
}

TEST_F(WindowJourney, ItComesBackWhereItWasAndAsLargeAsItWas)
{
    constexpr QRect place(210, 130, 1300, 820);
    openSpaceMap();
    EXPECT_EQ(window().size(), QSize(1280, 800)) << "at the first start";
    window().setGeometry(place);
    waitUntil([&] { return window().contentItem()->size() == QSizeF(place.size()); }, QStringLiteral("the new size"));
    quit();

    openSpaceMap();
    EXPECT_EQ(window().geometry(), place);
    EXPECT_EQ(window().contentItem()->size(), QSizeF(place.size()));
}

TEST_F(WindowJourney, ItComesBackWhereItWasAfterItWasClosed)
{
    constexpr QRect place(330, 90, 1200, 700);
    openSpaceMap();
    window().setGeometry(place);
    EXPECT_EQ(runUntilClosed(), 0);
    quit();

    openSpaceMap();
    EXPECT_EQ(window().geometry(), place);
}

TEST_F(WindowJourney, APlaceOffEveryScreenComesToTheMiddleOfTheScreen)
{
    remember({9000, -4000, 1300, 820});

    openSpaceMap();

    EXPECT_EQ(window().size(), QSize(1300, 820));
    EXPECT_EQ(window().geometry().center(), window().screen()->availableGeometry().center());
}

TEST_F(WindowJourney, ASizeLargerThanTheScreenFitsIt)
{
    remember({100, 100, 4000, 3000});

    openSpaceMap();

    EXPECT_EQ(window().geometry(), window().screen()->availableGeometry());
}

TEST_F(WindowJourney, AMaximisedWindowComesBackMaximisedAndKeepsThePlaceBehindIt)
{
    constexpr QRect place(210, 130, 1300, 820);
    openSpaceMap();
    window().setGeometry(place);
    QTest::qWait(settled);
    window().showMaximized();
    waitUntil([&] { return window().width() > place.width(); }, QStringLiteral("the large window"));
    quit();

    openSpaceMap();
    EXPECT_EQ(window().windowState(), Qt::WindowMaximized);
    window().showNormal();
    waitUntil([&] { return window().geometry() == place; }, QStringLiteral("the place behind it"));
}

TEST_F(WindowJourney, ItTurnsDarkAndLightWhileItRuns)
{
    openHome();
    tick(QStringLiteral("Projects"));
    waitForSelectionBar();
    const QColor light = bandColor();
    const QColor lightMap = map().picture().pixelColor(40, 60);

    Theme::instance()->setDark(true);
    waitUntil([&] { return bandColor().lightnessF() < 0.3F; }, QStringLiteral("a dark window"));
    EXPECT_NE(map().picture().pixelColor(40, 60), lightMap);
    EXPECT_TRUE(shows(QStringLiteral("1 item selected")));

    Theme::instance()->setDark(false);
    waitUntil([&] { return bandColor() == light; }, QStringLiteral("a light window"));
}

TEST_F(WindowJourney, EscapeAndAClickPutAMessageAway)
{
    openHome();
    store().showToast("a message");
    waitForToast();
    press(Qt::Key_Escape);
    waitUntil([&] { return !isShown(QStringLiteral("toast")); }, QStringLiteral("the message to go"));

    store().showToast("another message");
    waitForToast();
    click(QStringLiteral("toast"));
    waitUntil([&] { return !isShown(QStringLiteral("toast")); }, QStringLiteral("the message to go"));
}

TEST_F(WindowJourney, NoKeyReachesTheWindowBehindASheet)
{
    openHome();
    tick(QStringLiteral("Games"));
    waitForSelectionBar();
    click(QStringLiteral("reviewButton"));
    waitForPopup(QStringLiteral("reviewSheet"));
    const std::shared_ptr<FileNode> before = store().root();

    press(Qt::Key_R, Qt::ControlModifier);
    press(Qt::Key_Backspace, Qt::ControlModifier);

    EXPECT_EQ(store().root(), before);
    EXPECT_FALSE(store().isRemoving());
    EXPECT_TRUE(exists("Games/world.dat"));
}

} // namespace
} // namespace corvane
