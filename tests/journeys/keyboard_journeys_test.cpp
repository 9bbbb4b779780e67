#include <cstdlib>
#include <functional>

#include <QAccessible>

#include "journeys/held_listing.h"
#include "journeys/journey.h"
#include "shell/ui/theme.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

/// How a screen reader announces an item: "Review (button)".
std::string spoken(QQuickItem &item)
{
    const QAccessibleInterface *const interface = QAccessible::queryAccessibleInterface(&item);
    if (interface == nullptr)
        return "nothing";
    const auto role = [interface]() -> std::string {
        switch (interface->role()) {
        case QAccessible::Button:
        case QAccessible::ButtonMenu: // reported as a button by Qt 6.4
            return "button";
        case QAccessible::List:
            return "list";
        case QAccessible::ListItem:
            return "row";
        case QAccessible::MenuItem:
            return "menu item";
        default:
            return "role " + std::to_string(interface->role());
        }
    };
    return interface->text(QAccessible::Name).toStdString() + " (" + role() + ")";
}

/// The whole window, operated by keyboard only.
class KeyboardJourney : public Journey {
protected:
    /// Opens a folder three levels deep and selects an item, so that every part of the window has content.
    void openDeepFolder()
    {
        addFile("Movies/film.mkv", 6);
        addFile("Movies/Exports/cut.mov", 3);
        addFile("Games/world.dat", 2);
        openAndScan();
        tick(QStringLiteral("Games"));
        waitForSelectionBar();
        clickTile("Exports");
        waitForWay("home/Movies/Exports");
        driver().pointAtNothing();
        driver().item(QStringLiteral("appMenuButton")).forceActiveFocus(Qt::TabFocusReason);
    }

    [[nodiscard]] QQuickItem *focused() { return window().activeFocusItem(); }
    [[nodiscard]] std::string focusedName() { return focused() != nullptr ? spoken(*focused()) : "nothing"; }

    /// The focus stops from the first press of the key until the first stop is reached again.
    std::vector<std::string> stops(Qt::Key key, const std::function<void(QQuickItem &)> &atEach = {})
    {
        constexpr std::size_t mostStops = 40;
        std::vector<std::string> names;
        press(key);
        QQuickItem *const first = focused();
        if (first == nullptr)
            giveUp(QStringLiteral("the keyboard is nowhere"));
        do {
            names.push_back(spoken(*focused()));
            if (atEach)
                atEach(*focused());
            press(key);
        } while (focused() != first && names.size() < mostStops);
        return names;
    }

    /// The pixels in and around the item that have the focus ring's colour.
    QImage ringPixels(const QQuickItem &item)
    {
        constexpr double ringOutset = 4;
        const QRectF place =
            item.mapRectToScene(item.boundingRect()).marginsAdded({ringOutset, ringOutset, ringOutset, ringOutset});
        const QImage part = driver().picture().copy(place.toRect());
        const QColor ring = Theme::instance()->focus();
        const auto isOfRing = [&](const QColor &color) {
            constexpr int shade = 16; // the selection bar's shadow, which falls on the end of the map
            return std::abs(color.red() - ring.red()) <= shade && std::abs(color.green() - ring.green()) <= shade &&
                   std::abs(color.blue() - ring.blue()) <= shade;
        };
        QImage marked(part.size(), QImage::Format_Grayscale8);
        for (int y = 0; y < part.height(); ++y) {
            for (int x = 0; x < part.width(); ++x)
                marked.setPixelColor(x, y, isOfRing(part.pixelColor(x, y)) ? Qt::white : Qt::black);
        }
        return marked;
    }
    /// Whether there is a closed ring around the item that was not in `before`.
    static bool isRing(const QImage &before, const QImage &now)
    {
        QRect bounds;
        const auto isNew = [&](int x, int y) {
            return now.pixelColor(x, y) == Qt::white && before.pixelColor(x, y) == Qt::black;
        };
        for (int y = 0; y < now.height(); ++y) {
            for (int x = 0; x < now.width(); ++x) {
                if (isNew(x, y))
                    bounds |= QRect(x, y, 1, 1);
            }
        }
        if (bounds.width() < 8 || bounds.height() < 8)
            return false;
        const auto share = [&](QPoint from, QPoint step, int length) {
            int marked = 0;
            for (int i = 0; i < length; ++i)
                marked += isNew(from.x() + i * step.x(), from.y() + i * step.y()) ? 1 : 0;
            return static_cast<double>(marked) / length;
        };
        constexpr double straightPart = 0.4; // the corners are round
        return share(bounds.topLeft(), {1, 0}, bounds.width()) > straightPart &&
               share(bounds.bottomLeft(), {1, 0}, bounds.width()) > straightPart &&
               share(bounds.topLeft(), {0, 1}, bounds.height()) > straightPart &&
               share(bounds.topRight(), {0, 1}, bounds.height()) > straightPart;
    }
    /// Tabs through the window and expects a focus ring at each stop and nowhere else.
    void expectRings()
    {
        const auto expectRing = [&](QQuickItem &item) {
            const QImage with = ringPixels(item);
            press(Qt::Key_Tab);
            const QImage without = ringPixels(item);
            press(Qt::Key_Backtab);
            ASSERT_EQ(focused(), &item);
            EXPECT_TRUE(isRing(without, with)) << spoken(item);
        };
        EXPECT_GE(stops(Qt::Key_Tab, expectRing).size(), 13U);
    }
    /// Expects the item to have the focus and to show it.
    void expectKeyboardAt(const char *objectName)
    {
        QQuickItem &item = driver().item(QLatin1String(objectName));
        waitUntil([&] { return focused() == &item; }, QStringLiteral("the keyboard at %1").arg(item.objectName()));
        EXPECT_TRUE(item.property("visualFocus").toBool()) << objectName;
    }
};

const std::vector<std::string> windowStops{
    "Menu (button)",    "Screens (list)",  "Up one level (Ctrl+↑) (button)", "home (button)",    "Movies (button)",
    "Exports (button)", "Rescan (button)", "More ways to scan (button)",     "Space Map (list)", "Exports (list)",
    "Review (button)",  "Clear (button)",  "Move to Trash (button)",
};

TEST_F(KeyboardJourney, TabStopsOnceAtEverythingFromTheTopLeftToTheSelectionBar)
{
    openDeepFolder();
    driver().item(QStringLiteral("moveToTrashButton")).forceActiveFocus(Qt::TabFocusReason);

    EXPECT_THAT(stops(Qt::Key_Tab), ElementsAreArray(windowStops));
}

TEST_F(KeyboardJourney, ShiftTabWalksTheSameWayBack)
{
    openDeepFolder();

    EXPECT_THAT(stops(Qt::Key_Backtab),
                ElementsAreArray(std::vector<std::string>(windowStops.rbegin(), windowStops.rend())));
}

TEST_F(KeyboardJourney, BeforeAScanTabLeadsToTheWayToOne)
{
    openSpaceMap();

    EXPECT_THAT(stops(Qt::Key_Tab), ElementsAre("Menu (button)", "Screens (list)", "Scan (button)",
                                                "More ways to scan (button)", "Scan Home Folder (button)"));
}

TEST_F(KeyboardJourney, DuringAScanTabLeadsToBothWaysToStopIt)
{
    addFile("Slow/late.bin", 5);
    HeldListing slow(at("Slow"));
    openSpaceMap();
    press(Qt::Key_R, Qt::ControlModifier);
    waitUntil([&] { return slow.isReached(); }, QStringLiteral("a slow scan"));
    driver().item(QStringLiteral("requiresScan.stop")).forceActiveFocus(Qt::TabFocusReason);

    EXPECT_THAT(stops(Qt::Key_Tab),
                ElementsAre("Menu (button)", "Screens (list)", "Stop Scan (button)", "Stop (button)"));

    slow.release();
    waitUntil([&] { return isScanned(); }, QStringLiteral("the scan's end"));
}

TEST_F(KeyboardJourney, ARingShowsWhereTheKeyboardIsInLight)
{
    openDeepFolder();
    driver().item(QStringLiteral("moveToTrashButton")).forceActiveFocus(Qt::TabFocusReason);
    expectRings();
}

TEST_F(KeyboardJourney, ARingShowsWhereTheKeyboardIsInDark)
{
    openDeepFolder();
    Theme::instance()->setDark(true);
    driver().item(QStringLiteral("moveToTrashButton")).forceActiveFocus(Qt::TabFocusReason);
    expectRings();
}

TEST_F(KeyboardJourney, NoRingShowsWhereThePointerWasUsed)
{
    openDeepFolder();
    driver().click(row(QStringLiteral("cut.mov")));
    EXPECT_FALSE(focused()->property("visualFocus").toBool());
    click(QStringLiteral("clearButton"));
    EXPECT_FALSE(driver().item(QStringLiteral("reviewButton")).property("visualFocus").toBool());
}

TEST_F(KeyboardJourney, ASheetTakesTheKeyboardAndGivesItBack)
{
    openDeepFolder();
    tabTo(driver().item(QStringLiteral("reviewButton")));

    press(Qt::Key_Return);
    waitForPopup(QStringLiteral("reviewSheet"));
    expectKeyboardAt("reviewSheet.moveToTrash");
    EXPECT_THAT(stops(Qt::Key_Tab), ElementsAre("Games, 2.1 MB (row)", "Delete Permanently… (button)",
                                                "Cancel (button)", "Move to Trash (button)"));

    tabTo(driver().item(QStringLiteral("reviewSheet.deletePermanently")));
    press(Qt::Key_Space);
    waitForPopup(QStringLiteral("deleteConfirm"));
    expectKeyboardAt("deleteConfirm.cancel");
    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("deleteConfirm"));
    expectKeyboardAt("reviewSheet.deletePermanently");

    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("reviewSheet"));
    expectKeyboardAt("reviewButton");
}

TEST_F(KeyboardJourney, ASheetGivesTheKeyboardBackToTheTileThatItWasOn)
{
    openDeepFolder();
    tabTo(map());
    const int tile = map().focusedTile();

    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    waitForPopup(QStringLiteral("reviewSheet"));
    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("reviewSheet"));

    expectKeyboardAt("map");
    EXPECT_EQ(map().focusedTile(), tile);
}

TEST_F(KeyboardJourney, ARingStaysWhenTheWindowWasLeftForAnother)
{
    openDeepFolder();
    tabTo(driver().item(QStringLiteral("reviewButton")));

    QWindow other;
    other.show();
    other.requestActivate();
    waitUntil([&] { return other.isActive(); }, QStringLiteral("the other window"));
    window().requestActivate();
    waitUntil([&] { return window().isActive(); }, QStringLiteral("the window"));

    expectKeyboardAt("reviewButton");
}

TEST_F(KeyboardJourney, AtTheRootTheKeyboardGoesOnFromTheUpButton)
{
    openDeepFolder();
    tabTo(driver().item(QStringLiteral("upButton")));

    press(Qt::Key_Return);
    waitForWay("home/Movies");
    expectKeyboardAt("upButton");
    press(Qt::Key_Return);
    waitForWay("home");

    waitUntil([&] { return focusedName() == "home (button)"; }, QStringLiteral("the keyboard at the root's crumb"));
    EXPECT_TRUE(focused()->property("visualFocus").toBool());
}

TEST_F(KeyboardJourney, WithTheSelectionClearedTheKeyboardGoesBackToTheList)
{
    openDeepFolder();
    tabTo(driver().item(QStringLiteral("clearButton")));

    press(Qt::Key_Return);

    expectKeyboardAt("list");
    waitUntil([&] { return !isShown(QStringLiteral("selectionBar")); }, QStringLiteral("the selection bar to go"));
    expectKeyboardAt("list");
}

TEST_F(KeyboardJourney, AfterARemovalTheKeyboardIsInTheList)
{
    openDeepFolder();
    tabTo(driver().item(QStringLiteral("moveToTrashButton")));

    press(Qt::Key_Return);

    waitForToast();
    EXPECT_FALSE(exists("Games"));
    waitUntil([&] { return !isShown(QStringLiteral("selectionBar")); }, QStringLiteral("the selection bar to go"));
    expectKeyboardAt("list");
}

TEST_F(KeyboardJourney, F10OpensTheMenuAndEscapeGivesTheKeyboardBack)
{
    openDeepFolder();
    tabTo(map());

    press(Qt::Key_F10);
    waitForPopup(QStringLiteral("appMenu"));
    EXPECT_EQ(focusedName(), "Scan Home Folder (menu item)");
    press(Qt::Key_Down);
    EXPECT_EQ(focusedName(), "Scan Entire Disk (menu item)");
    press(Qt::Key_Up);
    EXPECT_EQ(focusedName(), "Scan Home Folder (menu item)");

    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("appMenu"));
    EXPECT_EQ(isScanned(), true);
    expectKeyboardAt("map");
}

TEST_F(KeyboardJourney, ReturnInTheMenuGivesTheCommand)
{
    openDeepFolder();

    press(Qt::Key_F10);
    waitForPopup(QStringLiteral("appMenu"));
    while (focusedName() != "Clear Selection (menu item)")
        press(Qt::Key_Down);
    press(Qt::Key_Return);

    waitForPopupClosed(QStringLiteral("appMenu"));
    waitUntil([&] { return store().selection().empty(); }, QStringLiteral("the empty selection"));
}

TEST_F(KeyboardJourney, TheMenuButtonOpensItsMenuBySpaceAndHasTheKeyboardAgainAfterwards)
{
    openSpaceMap();
    tabTo(driver().item(QStringLiteral("appMenuButton")));

    press(Qt::Key_Space);
    waitForPopup(QStringLiteral("appMenu"));
    EXPECT_EQ(focusedName(), "Scan Home Folder (menu item)");
    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("appMenu"));

    expectKeyboardAt("appMenuButton");
}

} // namespace
} // namespace corvane
