#include "core/words/figures.h"
#include "journeys/held_listing.h"
#include "journeys/journey.h"
#include "shell/ui/theme.h"

namespace corvane {
namespace {

using testing::ElementsAre;

class ScanJourney : public Journey {
protected:
    /// Adds a home with one folder whose listing blocks; everything else is counted quickly.
    void addSlowHome()
    {
        addFile("Movies/film.mkv", 3);
        addFile("Slow/early.bin", 2);
        addFile("Slow/Deeper/late.bin", 5);
        m_held.emplace(at("Slow"));
    }
    void releaseSlowFolder() { m_held->release(); }
    /// Waits until the scan has counted everything else and waits for the slow folder.
    void waitForSlowScan()
    {
        waitUntil([&] { return m_held->isReached() && store().scannedFiles() == 1; }, QStringLiteral("a slow scan"));
    }

    bool folderDialogIsOpen()
    {
        const QObject *const dialog = window().findChild<QObject *>(QStringLiteral("folderDialog"));
        return dialog != nullptr && dialog->property("visible").toBool();
    }

    /// Clicks the item with this text in Qt's own dialog: a folder's row or a button.
    void clickInDialog(const QString &text)
    {
        const QString scanButton = QStringLiteral("scanButton");
        const auto bearsText = [&](const QQuickItem &item) {
            const bool isOfDialog = item.inherits("QQuickAbstractButton") && item.objectName() != scanButton;
            return isOfDialog && (item.property("text") == text || item.property("fileName") == text);
        };
        driver().click(driver().itemWhere(bearsText, text));
    }

private:
    std::optional<HeldListing> m_held;
};

TEST_F(ScanJourney, BeforeAScanTheSpaceMapAsksForOne)
{
    addFile("Movies/film.mkv", 3);

    openSpaceMap();

    EXPECT_TRUE(shows(QStringLiteral("Scan first to see Space Map")));
    EXPECT_FALSE(isShown(QStringLiteral("map")));
    EXPECT_EQ(store().phase(), StorageStore::Phase::idle) << "nothing is scanned until somebody asks";
}

TEST_F(ScanJourney, ScanButtonScansTheHomeFolderAndShowsWhatItsItemsReallyOccupy)
{
    addFile("Movies/film.mkv", 6);
    addFile("Movies/Exports/cut.mov", 3);
    addFile("Music/song.flac", 2);
    folder().writeSparse("home/Music/hole.wav", 500 * mebibyte);
    folder().writeText("home/notes.txt", "hello");
    const auto occupied = [&](const char *relative) { return folder().allocated(std::string("home/") + relative); };
    const std::int64_t movies = occupied("Movies/film.mkv") + occupied("Movies/Exports/cut.mov");
    const std::int64_t music = occupied("Music/song.flac") + occupied("Music/hole.wav");
    const std::int64_t notes = occupied("notes.txt");

    openAndScan();

    EXPECT_EQ(way(), "home");
    EXPECT_THAT(rows(), ElementsAre("Movies " + formatByteCount(movies), "Music " + formatByteCount(music),
                                    "1 smaller file (< 1 MB) " + formatByteCount(notes)));
    EXPECT_THAT(tiles(), ElementsAre("Movies", "Music"));
    EXPECT_TRUE(shows(QString::fromStdString(formatByteCount(movies + music + notes))));
    EXPECT_TRUE(shows(QStringLiteral("5 files")));
    EXPECT_TRUE(shows(QStringLiteral("Rescan")));
}

TEST_F(ScanJourney, DuringAScanTheWindowShowsTheProgress)
{
    addSlowHome();
    openSpaceMap();

    click(QStringLiteral("scanButton"));
    waitForSlowScan();

    waitForText(QStringLiteral("1"));
    EXPECT_TRUE(shows(QStringLiteral("Files counted")));
    EXPECT_TRUE(shows(QStringLiteral("3.1 MB")));
    EXPECT_TRUE(shows(QStringLiteral("Space found")));
    EXPECT_TRUE(shows(QStringLiteral("Scanning home")));
    EXPECT_TRUE(shows(QString::fromStdString(at("Movies"))));
    EXPECT_FALSE(isShown(QStringLiteral("map")));

    releaseSlowFolder();
    waitForText(QStringLiteral("Rescan"));
    EXPECT_THAT(rows(), ElementsAre("Slow 7.3 MB", "Movies 3.1 MB"));
}

TEST_F(ScanJourney, StopButtonShowsWhatWasFoundSoFar)
{
    addSlowHome();
    openSpaceMap();
    click(QStringLiteral("requiresScan.scan"));
    waitForSlowScan();

    click(QStringLiteral("requiresScan.stop"));
    releaseSlowFolder();

    waitForToast();
    EXPECT_EQ(toast(), "Scan stopped — showing partial results");
    EXPECT_EQ(store().phase(), StorageStore::Phase::ready);
    EXPECT_THAT(rows(), ElementsAre("Movies 3.1 MB", "Slow 2.1 MB"));
}

TEST_F(ScanJourney, StopScanInTheToolbarShowsWhatWasFoundSoFar)
{
    addSlowHome();
    openSpaceMap();
    click(QStringLiteral("requiresScan.scan"));
    waitForSlowScan();
    EXPECT_TRUE(shows(QStringLiteral("Stop Scan")));

    click(QStringLiteral("stopScanButton"));
    releaseSlowFolder();

    waitForToast();
    EXPECT_EQ(toast(), "Scan stopped — showing partial results");
    EXPECT_EQ(store().phase(), StorageStore::Phase::ready);
    EXPECT_THAT(rows(), ElementsAre("Movies 3.1 MB", "Slow 2.1 MB"));
}

TEST_F(ScanJourney, AStoppedScanStaysMarkedUntilItIsRepeated)
{
    const QString remark = QStringLiteral("Partial: the scan was stopped");
    addSlowHome();
    openSpaceMap();
    click(QStringLiteral("requiresScan.scan"));
    waitForSlowScan();
    click(QStringLiteral("stopScanButton"));
    releaseSlowFolder();
    waitForToast();
    store().dismissToast();
    EXPECT_TRUE(shows(remark));

    click(QStringLiteral("scanButton"));
    waitUntil([&] { return store().phase() == StorageStore::Phase::ready; }, QStringLiteral("the whole scan"));
    EXPECT_THAT(rows(), ElementsAre("Slow 7.3 MB", "Movies 3.1 MB"));
    EXPECT_FALSE(shows(remark));
}

TEST_F(ScanJourney, AScanStartedDuringAnotherIsShownAndTheOtherNever)
{
    addSlowHome();
    folder().writeFile("elsewhere/new/fresh.iso", 4 * mebibyte);
    openSpaceMap();
    std::vector<std::string> shownRoots;
    QObject::connect(&store(), &StorageStore::treeChanged, &window(), [&] {
        if (store().root())
            shownRoots.push_back(store().root()->name);
    });
    press(Qt::Key_R, Qt::ControlModifier);
    waitForSlowScan();
    const std::shared_ptr<ScanProgress> older = store().progress();

    drop({QUrl::fromLocalFile(QString::fromStdString(folder() / "elsewhere/new"))});
    waitForWay("new");
    EXPECT_THAT(rows(), ElementsAre("fresh.iso 4.2 MB"));

    releaseSlowFolder();
    waitUntil([&] { return older.use_count() == 1; }, QStringLiteral("the older result to arrive"));
    EXPECT_THAT(shownRoots, ElementsAre("new"));
    EXPECT_EQ(way(), "new");
    EXPECT_EQ(toast(), "");
}

TEST_F(ScanJourney, CtrlRScansTheHomeFolderAgain)
{
    addFile("Movies/film.mkv", 3);
    openSpaceMap();

    press(Qt::Key_R, Qt::ControlModifier);
    waitForWay("home");
    EXPECT_THAT(rows(), ElementsAre("Movies 3.1 MB"));

    addFile("Music/song.flac", 2);
    press(Qt::Key_R, Qt::ControlModifier);
    waitUntil([&] { return isScanned() && isShown(QStringLiteral("contents")); }, QStringLiteral("the scan's end"));
    EXPECT_THAT(rows(), ElementsAre("Movies 3.1 MB", "Music 2.1 MB"));
}

TEST_F(ScanJourney, CtrlOAsksForAFolderAndEscapeLeavesEverythingAsItIs)
{
    addFile("Movies/film.mkv", 3);
    openAndScan();

    press(Qt::Key_O, Qt::ControlModifier);
    waitUntil([&] { return folderDialogIsOpen(); }, QStringLiteral("the folder dialog"));

    press(Qt::Key_Escape);
    waitUntil([&] { return !folderDialogIsOpen(); }, QStringLiteral("the folder dialog to close"));
    EXPECT_EQ(store().phase(), StorageStore::Phase::ready);
    EXPECT_THAT(rows(), ElementsAre("Movies 3.1 MB"));
}

TEST_F(ScanJourney, AFolderAcceptedInTheDialogIsScanned)
{
    addFile("Movies/film.mkv", 3);
    addFile("Games/world.dat", 2);
    openSpaceMap();

    press(Qt::Key_O, Qt::ControlModifier);
    waitUntil([&] { return folderDialogIsOpen(); }, QStringLiteral("the folder dialog"));
    clickInDialog(QStringLiteral("Games"));
    clickInDialog(QStringLiteral("Scan"));

    waitForWay("Games");
    EXPECT_FALSE(folderDialogIsOpen());
    EXPECT_THAT(rows(), ElementsAre("world.dat 2.1 MB"));
    EXPECT_EQ(store().lastScanPath(), at("Games"));
}

TEST_F(ScanJourney, TheFolderDialogListsHiddenFolders)
{
    addFile(".hidden/world.dat", 2);
    openSpaceMap();

    press(Qt::Key_O, Qt::ControlModifier);
    waitUntil([&] { return folderDialogIsOpen(); }, QStringLiteral("the folder dialog"));
    clickInDialog(QStringLiteral(".hidden"));
    clickInDialog(QStringLiteral("Scan"));

    waitForWay(".hidden");
    EXPECT_THAT(rows(), ElementsAre("world.dat 2.1 MB"));
}

TEST_F(ScanJourney, TheFolderDialogHasTheColoursOfTheTheme)
{
    addFile("Movies/film.mkv", 3);
    openSpaceMap();
    Theme::instance()->setDark(true);

    press(Qt::Key_O, Qt::ControlModifier);
    waitUntil([&] { return folderDialogIsOpen(); }, QStringLiteral("the folder dialog"));

    const QQuickItem &list = driver().item(QStringLiteral("folderDialogListView"));
    waitUntil(
        [&] {
            const QPoint corner = list.mapToScene(QPointF(4, list.height() - 4)).toPoint();
            return driver().picture().pixelColor(corner) == Theme::instance()->raised();
        },
        QStringLiteral("the ground of the dialog"));
    EXPECT_EQ(driver().item(QStringLiteral("dialogTitleBarLabel")).property("color").value<QColor>(),
              Theme::instance()->t1());
}

TEST_F(ScanJourney, CancellingTheFolderDialogScansNothing)
{
    addFile("Movies/film.mkv", 3);
    openSpaceMap();

    click(QStringLiteral("scanMenuButton"));
    click(QStringLiteral("scanMenu.choose"));
    waitUntil([&] { return folderDialogIsOpen(); }, QStringLiteral("the folder dialog"));
    clickInDialog(QStringLiteral("Movies"));
    clickInDialog(QStringLiteral("Cancel"));

    waitUntil([&] { return !folderDialogIsOpen(); }, QStringLiteral("the folder dialog to close"));
    EXPECT_EQ(store().phase(), StorageStore::Phase::idle);
    EXPECT_TRUE(shows(QStringLiteral("Scan first to see Space Map")));
}

TEST_F(ScanJourney, AFolderDroppedOnTheWindowIsScanned)
{
    folder().writeFile("elsewhere/disk one/film.mkv", 3 * mebibyte);
    openSpaceMap();

    drop({QUrl::fromLocalFile(QString::fromStdString(folder() / "elsewhere/disk one"))});

    waitForWay("disk one");
    EXPECT_THAT(rows(), ElementsAre("film.mkv 3.1 MB"));
}

TEST_F(ScanJourney, AFileDroppedOnTheWindowIsRefusedAndNothingIsLost)
{
    addFile("Movies/film.mkv", 3);
    openAndScan();

    drop({QUrl::fromLocalFile(QString::fromStdString(at("Movies/film.mkv")))});

    waitForToast();
    EXPECT_EQ(toast(), "Can't scan film.mkv: it is not a folder");
    EXPECT_TRUE(store().toastIsWarning());
    EXPECT_THAT(rows(), ElementsAre("Movies 3.1 MB"));
}

TEST_F(ScanJourney, AFolderThatIsGoneBeforeItsScanIsReportedAndNothingIsLost)
{
    addFile("Movies/film.mkv", 3);
    const std::string gone = folder().makeFolder("elsewhere/gone");
    openAndScan();
    std::filesystem::remove(gone);

    drop({QUrl::fromLocalFile(QString::fromStdString(gone))});

    waitForToast();
    EXPECT_EQ(toast(), "Can't scan gone: No such file or directory");
    EXPECT_TRUE(store().toastIsWarning());
    EXPECT_EQ(way(), "home");
    EXPECT_THAT(rows(), ElementsAre("Movies 3.1 MB"));
}

} // namespace
} // namespace corvane
