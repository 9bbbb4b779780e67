#include "shell/ui/window/window_state.h"

#include <gmock/gmock.h>

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include "support/temporary_folder.h"

namespace corvane {
namespace {

constexpr QRect mainScreen(0, 25, 1920, 1055);
constexpr QRect rightScreen(1920, 0, 2560, 1440);
constexpr QSize minimum(1040, 660);

QRect fitted(const QRect &remembered, const QList<QRect> &screens = {mainScreen, rightScreen})
{
    return WindowState::fitted(remembered, screens, minimum);
}

TEST(WindowState, APlaceInsideAScreenIsKept)
{
    EXPECT_EQ(fitted({100, 100, 1280, 800}), QRect(100, 100, 1280, 800));
    EXPECT_EQ(fitted({3000, 200, 1280, 800}), QRect(3000, 200, 1280, 800));
}

TEST(WindowState, APlaceOnAScreenThatIsGoneComesToTheMiddleOfTheMainOne)
{
    const QRect rect = fitted({3000, 200, 1280, 800}, {mainScreen});
    EXPECT_EQ(rect.size(), QSize(1280, 800));
    EXPECT_EQ(rect.center(), mainScreen.center());
}

TEST(WindowState, APlaceHalfOutsideIsMovedIn)
{
    EXPECT_EQ(fitted({-600, 900, 1280, 800}, {mainScreen}), QRect(0, 280, 1280, 800));
    EXPECT_EQ(fitted({1500, -300, 1280, 800}, {mainScreen}), QRect(640, 25, 1280, 800));
}

TEST(WindowState, TheScreenWithTheLargerShareWins)
{
    EXPECT_EQ(fitted({1800, 100, 1280, 800}), QRect(1920, 100, 1280, 800));
    EXPECT_EQ(fitted({800, 100, 1280, 800}), QRect(640, 100, 1280, 800));
}

TEST(WindowState, ASizeLargerThanTheScreenIsShrunk)
{
    EXPECT_EQ(fitted({0, 0, 5000, 4000}, {mainScreen}), mainScreen);
}

TEST(WindowState, ASizeBelowTheMinimumIsRaised)
{
    EXPECT_EQ(fitted({100, 100, 300, 200}).size(), minimum);
}

TEST(WindowState, ATinyScreenKeepsTheMinimumAndItsTopLeftCorner)
{
    EXPECT_EQ(fitted({400, 400, 1280, 800}, {QRect(0, 0, 800, 600)}), QRect(QPoint(0, 0), minimum));
}

TEST(WindowState, ComesBackInTheNextRun)
{
    const TemporaryFolder folder;
    const QString file = QString::fromStdString(folder / "settings.ini");
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QRect place(screen.topLeft() + QPoint(7, 9), QSize(400, 300));
    {
        QSettings settings(file, QSettings::IniFormat);
        QWindow window;
        WindowState state(window, settings);
        state.restore();
        window.setGeometry(place);
    }
    QSettings settings(file, QSettings::IniFormat);
    QWindow window;
    WindowState state(window, settings);
    state.restore();
    EXPECT_EQ(window.geometry(), place);
    EXPECT_FALSE(window.windowStates().testFlag(Qt::WindowMaximized));
}

TEST(WindowState, AMaximisedWindowRemembersThePlaceBehindIt)
{
    const TemporaryFolder folder;
    const QString file = QString::fromStdString(folder / "settings.ini");
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QRect place(screen.topLeft() + QPoint(7, 9), QSize(400, 300));
    {
        QSettings settings(file, QSettings::IniFormat);
        QWindow window;
        WindowState state(window, settings);
        window.setGeometry(place);
        state.save();
        window.showMaximized();
        state.save();
    }
    QSettings settings(file, QSettings::IniFormat);
    QWindow window;
    WindowState state(window, settings);
    state.restore();
    EXPECT_TRUE(window.windowStates().testFlag(Qt::WindowMaximized));
    EXPECT_EQ(settings.value("window.geometry").toRect(), place);
}

TEST(WindowState, NonsenseInTheSettingsIsIgnored)
{
    const TemporaryFolder folder;
    QSettings settings(QString::fromStdString(folder / "settings.ini"), QSettings::IniFormat);
    settings.setValue("window.geometry", "somewhere");
    QWindow window;
    window.setGeometry(1, 2, 300, 200);
    WindowState state(window, settings);
    state.restore();
    EXPECT_EQ(window.geometry(), QRect(1, 2, 300, 200));
}

} // namespace
} // namespace corvane
