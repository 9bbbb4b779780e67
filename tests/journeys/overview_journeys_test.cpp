#include "journeys/held_listing.h"
#include "journeys/journey.h"

namespace corvane {
namespace {

using testing::ElementsAre;

class OverviewJourney : public Journey {
protected:
    void scanFromOverview()
    {
        open();
        click(QStringLiteral("overview.scanHome"));
        waitUntil([&] { return isScanned() && !store().cleanupLoading(); }, QStringLiteral("the scan's end"));
        driver().rest();
    }
    /// One of the biggest items: "Movies, 6.3 MB".
    [[nodiscard]] QQuickItem &topItem(const QString &name)
    {
        return driver().itemWhere(
            [&](const QQuickItem &item) {
                return item.property("fraction").isValid() && item.property("title").toString() == name;
            },
            QStringLiteral("the item ") + name);
    }
};

TEST_F(OverviewJourney, TheFirstScreenOffersTheScansAndSaysWhatTheyFound)
{
    addFile("Movies/film.mkv", 6);
    addFile("Music/song.flac", 2);
    addFile(".npm/_cacache/blob", 3);
    open();
    EXPECT_TRUE(shows(QStringLiteral("Nothing scanned yet")));
    EXPECT_FALSE(store().hasScan());

    click(QStringLiteral("overview.scanHome"));
    waitUntil([&] { return isScanned(); }, QStringLiteral("the scan's end"));

    waitForText(QStringLiteral("3 files · 11.5 MB"));
    EXPECT_TRUE(shows(QStringLiteral("Biggest items in home")));
    EXPECT_EQ(topItem(QStringLiteral("Movies")).property("sizeText").toString(), QStringLiteral("6.3 MB"));
    EXPECT_TRUE(shows(QStringLiteral("Videos")));
    waitForText(QStringLiteral("npm Cache")); // the caches are measured after the scan
    waitForText(QStringLiteral("3.1 MB of safe-to-clear junk"));
    EXPECT_FALSE(isShown(QStringLiteral("overview.scanHome")));
}

TEST_F(OverviewJourney, AScanShowsFiguresThatMoveAndCanBeStopped)
{
    addFile("Movies/film.mkv", 3);
    addFile("Slow/early.bin", 2);
    addFile("Slow/Deeper/late.bin", 5);
    HeldListing held(at("Slow"));
    open();
    click(QStringLiteral("overview.scanHome"));
    waitUntil([&] { return held.isReached() && store().scannedFiles() == 1; }, QStringLiteral("a slow scan"));

    EXPECT_TRUE(shows(QStringLiteral("Scanning")));
    EXPECT_TRUE(shows(QStringLiteral("Scanning home")));
    waitForText(QStringLiteral("1"));
    EXPECT_TRUE(shows(QStringLiteral("Files counted")));
    EXPECT_TRUE(shows(QStringLiteral("3.1 MB")));
    EXPECT_TRUE(shows(QStringLiteral("Space found")));
    EXPECT_TRUE(shows(QStringLiteral("Now looking in")));
    EXPECT_TRUE(shows(QString::fromStdString(at("Movies"))));

    click(QStringLiteral("overview.stop"));
    held.release();

    waitForToast();
    EXPECT_EQ(toast(), "Scan stopped — showing partial results");
    EXPECT_TRUE(shows(QStringLiteral("File types")));
    EXPECT_FALSE(isShown(QStringLiteral("overview.stop")));
}

TEST_F(OverviewJourney, AFolderOpensInTheSpaceMapAndTheCleanupIsOnePressAway)
{
    addFile("Movies/film.mkv", 6);
    addFile(".npm/_cacache/blob", 3);
    scanFromOverview();
    driver().click(topItem(QStringLiteral("Movies")));
    waitForWay("home/Movies");

    click(QStringLiteral("sidebar.overview"));
    click(QStringLiteral("overview.seeAll"));
    waitForWay("home");

    click(QStringLiteral("sidebar.overview"));
    click(QStringLiteral("overview.openCleanup"));
    waitForText(QStringLiteral("3.1 MB of caches & build junk is safe to clear"));
}

TEST_F(OverviewJourney, TheBreakdownIsOnePressAway)
{
    open();
    click(QStringLiteral("summary.seeBreakdown"));
    waitUntil([&] { return store().sidebar() == StorageStore::SidebarItem::breakdown; },
              QStringLiteral("the breakdown"));
}

TEST_F(OverviewJourney, AfterARemovalEveryFigureFollows)
{
    addFile("Films/film.mkv", 6);
    addFile("Music/song.flac", 2);
    addFile(".npm/_cacache/blob", 3);
    scanFromOverview();
    store().setSelected(at("Films"), store().node(at("Films"))->size, true);
    store().setSelected(at(".npm/_cacache/blob"), 3 * mebibyte, true);
    waitForSelectionBar();
    click(QStringLiteral("moveToTrashButton"));
    waitUntil([&] { return !toast().empty() && !store().cleanupLoading(); }, QStringLiteral("the removal's message"));

    waitForText(QStringLiteral("1 file · 2.1 MB"));
    EXPECT_TRUE(shows(QStringLiteral("2.1 MB in 1 file")));
    EXPECT_FALSE(shows(QStringLiteral("Videos")));
    EXPECT_FALSE(shows(QStringLiteral("npm Cache")));
    EXPECT_TRUE(shows(QStringLiteral("9.4 MB of safe-to-clear junk"))) << "which lies in the Trash by now";
    EXPECT_THAT(Sandbox::instance().trash(), ElementsAre("Films", "blob"));
}

TEST_F(OverviewJourney, WithoutAccessABannerExplainsWhatIsMissing)
{
    if (systemHost().files.systemKind() != SystemKind::mac)
        GTEST_SKIP() << "this system hides nothing from programs";
    addFile("Library/Logs/app.log", 1);
    open();
    EXPECT_TRUE(shows(QStringLiteral("Give Corvane Full Disk Access for complete results")));
    click(QStringLiteral("overview.accessGuide"));
    waitForPopup(QStringLiteral("welcome"));
    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("welcome"));
}

TEST_F(OverviewJourney, TheKeyboardAloneScansAndOpensAFolder)
{
    addFile("Movies/film.mkv", 6);
    addFile("Music/song.flac", 2);
    open();
    tabTo(driver().item(QStringLiteral("overview.scanHome")));
    press(Qt::Key_Return);
    waitUntil([&] { return isScanned() && isShown(QStringLiteral("overview.topFolders")); },
              QStringLiteral("the scan's end"));
    tabTo(driver().item(QStringLiteral("overview.topFolders")));
    press(Qt::Key_Down);
    press(Qt::Key_Menu);
    waitForPopup(QStringLiteral("overviewMenu"));
    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("overviewMenu"));
    press(Qt::Key_Return);
    waitForWay("home/Music");
}

} // namespace
} // namespace corvane
