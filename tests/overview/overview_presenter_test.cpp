#include "overview/ui/overview_presenter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QSignalSpy>

#include "cleanup/cleanup_fixture.h"
#include "support/patience.h"

namespace corvane {
namespace {

using testing::Contains;

class OverviewPresenterTest : public test::CleanupFixture {
protected:
    [[nodiscard]] static QStringList titles(const OverviewRowsModel &model)
    {
        QStringList result;
        for (const OverviewRow &row : model.rows())
            result << row.title;
        return result;
    }

    OverviewPresenter presenter{store};
};

// --- The header and the volume

TEST_F(OverviewPresenterTest, TheSubtitleFollowsTheScan)
{
    addFile("Movies/a.mov", 5'000'000);
    EXPECT_EQ(presenter.subtitle(), QStringLiteral("Nothing scanned yet"));
    EXPECT_FALSE(presenter.hasScan());
    store.scanHome();
    EXPECT_EQ(presenter.subtitle(), QStringLiteral("Scanning studio"));
    EXPECT_TRUE(presenter.isScanning());
    ASSERT_TRUE(QTest::qWaitFor([&] { return presenter.hasScan(); }, patience));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !presenter.isScanning(); }, patience));
    EXPECT_EQ(presenter.subtitle(), QStringLiteral("Macintosh HD · scanned just now"));
}

TEST_F(OverviewPresenterTest, TheVolumesFiguresFollowARemoval)
{
    addFile("Movies/a.mov", 5'000'000);
    scanHome();
    EXPECT_EQ(presenter.volumeName(), QStringLiteral("Macintosh HD"));
    EXPECT_EQ(presenter.usedText(), QStringLiteral("811.29 GB"));
    EXPECT_EQ(presenter.totalText(), QStringLiteral("994.66 GB"));
    EXPECT_EQ(presenter.availableText(), QStringLiteral("183.37 GB"));
    EXPECT_NEAR(presenter.usedFraction(), 0.8156, 0.0001);
    EXPECT_EQ(presenter.diskChoiceText(), QStringLiteral("Everything readable on Macintosh HD."));

    const QSignalSpy changed(&presenter, &OverviewPresenter::changed);
    setAvailable(283'370'000'000);
    removeItem("Movies/a.mov", 5'000'000);
    EXPECT_EQ(presenter.usedText(), QStringLiteral("711.29 GB"));
    EXPECT_EQ(presenter.availableText(), QStringLiteral("283.37 GB"));
    EXPECT_GT(changed.count(), 0);
}

TEST_F(OverviewPresenterTest, AVolumeOfUnknownSizeIsNotShownAsFull)
{
    fake.volumes.set("/", {});
    addFile("a.mov", 5'000'000);
    scanHome();
    EXPECT_EQ(presenter.usedFraction(), 0);
    EXPECT_EQ(presenter.totalText(), QStringLiteral("Zero KB"));
}

TEST_F(OverviewPresenterTest, ACardWithoutRowsSaysWhy)
{
    EXPECT_EQ(presenter.noTypesText(), QString());
    scanHome();
    EXPECT_EQ(presenter.noTypesText(), QStringLiteral("This folder is empty"));
    EXPECT_EQ(presenter.noTopItemsText(), QStringLiteral("This folder is empty"));

    addFile("note.txt", 0);
    scanHome();
    EXPECT_EQ(presenter.noTypesText(), QStringLiteral("The files take up no space"));
    addFile("letter.txt", 4'000);
    scanHome();
    EXPECT_EQ(presenter.noTypesText(), QString());
    EXPECT_EQ(presenter.noTopItemsText(), QStringLiteral("All files are smaller than 1 MB"));
    EXPECT_EQ(presenter.emptySymbol(), QStringLiteral("tray"));

    addFile("Movies/a.mov", 5'000'000);
    scanHome();
    EXPECT_EQ(presenter.noTypesText(), QString());
    EXPECT_EQ(presenter.noTopItemsText(), QString());
}

TEST_F(OverviewPresenterTest, CardsOfAFolderThatCannotBeReadSayIt)
{
    fake.files.failListing(home);
    scanHome();
    EXPECT_EQ(presenter.noTypesText(), QStringLiteral("This folder can't be read"));
    EXPECT_EQ(presenter.noTopItemsText(), QStringLiteral("This folder can't be read"));
    EXPECT_EQ(presenter.emptySymbol(), QStringLiteral("lock"));
}

TEST_F(OverviewPresenterTest, CardsOfAFolderWithClosedFoldersAloneDoNotCallItEmpty)
{
    addFile("Closed/a.mov", 5'000'000);
    fake.files.failListing(home + "/Closed", std::errc::permission_denied);
    scanHome();
    ASSERT_EQ(store.deniedCount(), 1);
    EXPECT_EQ(presenter.noTypesText(), QStringLiteral("Nothing in this folder can be read"));
    EXPECT_EQ(presenter.noTopItemsText(), QStringLiteral("Nothing in this folder can be read"));
}

TEST_F(OverviewPresenterTest, TheBannerIsThereWithoutAccess)
{
    EXPECT_FALSE(presenter.needsAccess());
    fake.files.setSystemKind(SystemKind::mac); // whose probe file cannot be opened
    scanHome();
    EXPECT_TRUE(presenter.needsAccess());
    presenter.openAccessSettings();
    EXPECT_THAT(fake.log->lines(),
                Contains("openUrl x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"));
}

TEST_F(OverviewPresenterTest, TheBannerNamesNoMacElsewhere)
{
    fake.files.setSystemKind(SystemKind::linuxSystem);
    fake.files.failOpening(fake.files.homeFolder());
    store.refreshAccess();
    ASSERT_TRUE(presenter.needsAccess());
    EXPECT_FALSE(presenter.hasAccessSettings());
    for (const QString &text : {presenter.accessTitle(), presenter.accessText()}) {
        EXPECT_FALSE(text.isEmpty());
        for (const char *word : {"Mac", "macOS", "Full Disk Access", "System Settings"})
            EXPECT_FALSE(text.contains(QLatin1String(word))) << qPrintable(text);
    }
    fake.files.setSystemKind(SystemKind::mac);
    EXPECT_TRUE(presenter.hasAccessSettings());
}

// --- The scan's figures

TEST_F(OverviewPresenterTest, FoldersThatCouldNotBeOpenedAreSaidBesideTheFigures)
{
    addFile("Movies/a.mov", 5'000'000);
    addFile("closed/b.mov", 3'500'000);
    fake.files.failOpening(fake.files.homeFolder() + "/closed");
    scanHome();
    EXPECT_EQ(presenter.scannedFigures(), QStringLiteral("1 file · 5 MB · 1 folder could not be opened"));
    addFile("other/b.mov", 3'500'000);
    fake.files.failOpening(fake.files.homeFolder() + "/other");
    scanHome();
    EXPECT_EQ(presenter.scannedFigures(), QStringLiteral("1 file · 5 MB · 2 folders could not be opened"));
}

TEST_F(OverviewPresenterTest, TheScanSaysWhatItCountedAndHowLongItTook)
{
    addFile("Movies/a.mov", 5'000'000);
    addFile("Movies/b.mov", 3'500'000);
    scanHome();
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^Scanned studio in \\d+\\.\\d seconds$"))
                    .match(presenter.scannedLine())
                    .hasMatch())
        << presenter.scannedLine().toStdString();
    EXPECT_EQ(presenter.scannedFigures(), QStringLiteral("2 files · 8.5 MB"));
    EXPECT_EQ(presenter.typesFigures(), QStringLiteral("8.5 MB in 2 files"));
}

TEST_F(OverviewPresenterTest, OneFileIsCountedInTheSingular)
{
    addFile("a.mov", 5'000'000);
    scanHome();
    EXPECT_EQ(presenter.scannedFigures(), QStringLiteral("1 file · 5 MB"));
    EXPECT_EQ(presenter.typesFigures(), QStringLiteral("5 MB in 1 file"));
}

TEST_F(OverviewPresenterTest, TheWholeDiskIsCalledByItsVolume)
{
    addFile("a.mov", 5'000'000);
    scan("/");
    EXPECT_TRUE(presenter.scannedLine().startsWith(QStringLiteral("Scanned Macintosh HD in ")));
    EXPECT_EQ(presenter.topTitle(), QStringLiteral("Biggest items in Macintosh HD"));
}

TEST_F(OverviewPresenterTest, AFileOfExactlyOneHundredMillionBytesIsLargeAndOneOfAByteLessIsNot)
{
    addFile("exact.mov", 100'000'000);
    addFile("below.mov", 99'999'999);
    addFile("large.mov", 300'000'000);
    scanHome();
    EXPECT_EQ(presenter.largeFiles(), QStringLiteral("2"));
    removeItem("large.mov", 300'000'000);
    EXPECT_EQ(presenter.largeFiles(), QStringLiteral("1"));
}

TEST_F(OverviewPresenterTest, ProjectJunkIsTheSumOfTheBuildFolders)
{
    addProject("harbor", 5'000'000);
    addProject("tide", 2'500'000);
    scanHome();
    EXPECT_EQ(presenter.projectJunk(), QStringLiteral("7.5 MB"));
    removeItem("Projects/harbor/node_modules", 5'000'000);
    EXPECT_EQ(presenter.projectJunk(), QStringLiteral("2.5 MB"));
    EXPECT_EQ(presenter.scannedFigures(), QStringLiteral("3 files · 2.5 MB"));
}

TEST_F(OverviewPresenterTest, TypesAreLargestFirstWithTheirColoursAndTheirPartsOfTheBar)
{
    addFile("a.mov", 5'000'000);
    addFile("b.zip", 9'000'000);
    scanHome();
    EXPECT_EQ(titles(*presenter.types()), QStringList({QStringLiteral("Archives"), QStringLiteral("Videos")}));
    EXPECT_EQ(presenter.types()->rows().front().sizeText, QStringLiteral("9 MB"));
    ASSERT_EQ(presenter.typeParts().size(), 2);
    EXPECT_EQ(presenter.typeParts().front().size, 9'000'000);
    EXPECT_EQ(presenter.typeParts().front().color, presenter.types()->rows().front().color);
    EXPECT_NE(presenter.typeParts().front().color, presenter.typeParts().back().color);
}

TEST_F(OverviewPresenterTest, ATypeOfFilesLeadsToTheLargeFilesOfThatType)
{
    addFile("a.mov", 5'000'000);
    addFile("b.zip", 9'000'000);
    addFile("note.txt", 4'000);
    scanHome();
    const OverviewRowsModel &types = *presenter.types();
    ASSERT_EQ(titles(types), QStringList({"Archives", "Videos", "Small Files"}));
    EXPECT_TRUE(types.flags(types.index(0)).testFlag(Qt::ItemIsEnabled));
    EXPECT_FALSE(types.flags(types.index(2)).testFlag(Qt::ItemIsEnabled)) << "small files are not listed";
    presenter.openType(1);
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::large);
    EXPECT_EQ(store.takeLargeFilesType(), FileType(FileType::video));
    EXPECT_EQ(store.takeLargeFilesType(), std::nullopt);
    presenter.openType(7);
    EXPECT_EQ(store.takeLargeFilesType(), std::nullopt) << "there is no such row";
}

TEST_F(OverviewPresenterTest, TheCountOfLargeFilesLeadsToAllOfThem)
{
    store.showLargeFiles(FileType::video);
    store.setSidebar(StorageStore::SidebarItem::overview);
    presenter.openLargeFiles();
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::large);
    EXPECT_EQ(store.takeLargeFilesType(), std::nullopt);
}

// --- The biggest items

TEST_F(OverviewPresenterTest, AFolderWithThreeChildrenGivesThreeRows)
{
    addFile("Movies/a.mov", 4'000'000);
    addFile("Music/b.flac", 2'000'000);
    addFile("film.mov", 1'000'000);
    scanHome();
    EXPECT_EQ(titles(*presenter.topItems()),
              QStringList({QStringLiteral("Movies"), QStringLiteral("Music"), QStringLiteral("film.mov")}));
    EXPECT_EQ(presenter.topTitle(), QStringLiteral("Biggest items in studio"));
    EXPECT_EQ(presenter.topFigures(), QStringLiteral("7 MB"));
    EXPECT_EQ(presenter.topItems()->rows().front().fraction, 1);
    EXPECT_EQ(presenter.topItems()->rows()[1].fraction, 0.5);
}

TEST_F(OverviewPresenterTest, AFolderWithTwentyChildrenGivesEight)
{
    for (int i = 1; i <= 20; ++i)
        addFile("f" + std::to_string(i) + ".mov", i * 1'000'000);
    scanHome();
    EXPECT_EQ(presenter.topItems()->rowCount(), 8);
    EXPECT_EQ(presenter.topItems()->rows().front().title, QStringLiteral("f20.mov"));
    EXPECT_EQ(presenter.topItems()->rows().back().title, QStringLiteral("f13.mov"));
}

TEST_F(OverviewPresenterTest, AnItemOpensInTheMapAndAFileInItsFolder)
{
    addFile("Movies/a.mov", 4'000'000);
    addFile("film.mov", 1'000'000);
    scanHome();
    presenter.openTopItem(0);
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::explorer);
    EXPECT_EQ(store.currentFolder()->name, "Movies");

    store.setSidebar(StorageStore::SidebarItem::overview);
    presenter.openTopItem(1);
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::explorer);
    EXPECT_EQ(store.currentFolder(), store.root());

    store.setSidebar(StorageStore::SidebarItem::overview);
    presenter.openTopItem(2);
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::overview) << "there is no such row";
}

TEST_F(OverviewPresenterTest, SeeAllShowsTheScannedFolderInTheMap)
{
    addFile("Movies/a.mov", 4'000'000);
    scanHome();
    store.open(store.root()->children.front());
    presenter.seeAll();
    EXPECT_EQ(store.currentFolder(), store.root());
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::explorer);
}

TEST_F(OverviewPresenterTest, TheBiggestItemsFollowARemoval)
{
    addFile("Movies/a.mov", 4'000'000);
    addFile("Music/b.flac", 2'000'000);
    scanHome();
    removeItem("Movies", 4'000'000);
    EXPECT_EQ(titles(*presenter.topItems()), QStringList(QStringLiteral("Music")));
    EXPECT_EQ(presenter.topItems()->rows().front().fraction, 1);
    EXPECT_EQ(presenter.topFigures(), QStringLiteral("2 MB"));
}

// --- Quick wins

TEST_F(OverviewPresenterTest, FiveSafeLocationsGiveFourRowsAndTheSumOfAll)
{
    addFile("Library/Caches/a", 5'000'000);
    addFile("Library/Logs/b", 4'000'000);
    addFile(".npm/_cacache/c", 3'000'000);
    addFile(".Trash/d", 2'000'000);
    addFile(".gradle/caches/e", 1'000'000);
    measure();
    EXPECT_EQ(titles(*presenter.quickWins()), QStringList({QStringLiteral("App Caches"), QStringLiteral("Logs"),
                                                           QStringLiteral("npm Cache"), QStringLiteral("Trash")}));
    EXPECT_EQ(presenter.quickWinsText(), QStringLiteral("15 MB of safe-to-clear junk"));
    EXPECT_EQ(presenter.quickWins()->rows().front().sizeText, QStringLiteral("5 MB"));
    EXPECT_EQ(presenter.quickWins()->rows().front().countText, QStringLiteral("1 item"));
}

TEST_F(OverviewPresenterTest, TheSystemsOwnSafeLocationsAreQuickWinsBetweenTheOthers)
{
    fake.files.setSystemKind(SystemKind::linuxSystem);
    addFile("Library/Caches/a", 5'000'000);
    addFile(".ollama/models/b", 9'000'000);
    addFile(".cargo/registry/c", 4'000'000);
    addFile(".Trash/d", 2'000'000);
    addFile("go/pkg/mod/e", 6'000'000);
    measure();
    EXPECT_EQ(titles(*presenter.quickWins()),
              QStringList({QStringLiteral("Go Module Cache"), QStringLiteral("App Caches"),
                           QStringLiteral("Cargo Registry"), QStringLiteral("Trash")}));
}

TEST_F(OverviewPresenterTest, WhatIsEmptyOrToBeReviewedIsNoQuickWin)
{
    addFile("Downloads/a", 5'000'000);
    addFile("Library/Developer/Xcode/Archives/b", 5'000'000);
    addFile("Library/Logs/c", 1'000);
    measure();
    EXPECT_EQ(titles(*presenter.quickWins()), QStringList(QStringLiteral("Logs")));
    EXPECT_EQ(presenter.quickWinsText(), QStringLiteral("1 KB of safe-to-clear junk"));
}

TEST_F(OverviewPresenterTest, WithoutQuickWinsItSaysSo)
{
    addFile("Downloads/a", 5'000'000);
    measure();
    EXPECT_EQ(presenter.quickWins()->rowCount(), 0);
    EXPECT_EQ(presenter.quickWinsText(), QStringLiteral("Your caches look tidy. Nice!"));
    EXPECT_FALSE(presenter.isMeasuring());
}

TEST_F(OverviewPresenterTest, BeforeTheFirstMeasurementNothingIsClaimed)
{
    EXPECT_FALSE(presenter.isMeasuring()) << "what turns without work keeps the processor busy";
    EXPECT_FALSE(presenter.isTidy());
    EXPECT_EQ(presenter.quickWinsText(), QString());
    store.refreshCleanup();
    EXPECT_TRUE(presenter.isMeasuring());
    EXPECT_FALSE(presenter.isTidy());
    EXPECT_EQ(presenter.quickWinsText(), QStringLiteral("Measuring caches…"));
    waitForMeasurement();
    EXPECT_FALSE(presenter.isMeasuring());
    store.refreshCleanup();
    EXPECT_FALSE(presenter.isMeasuring()) << "the last figures stay while they are measured anew";
    waitForMeasurement();
}

TEST_F(OverviewPresenterTest, QuickWinsFollowARemoval)
{
    addFile("Library/Caches/a", 5'000'000);
    addFile("Library/Logs/b", 4'000'000);
    measure();
    removeItem("Library/Caches/a", 5'000'000);
    EXPECT_EQ(titles(*presenter.quickWins()), QStringList(QStringLiteral("Logs")));
    EXPECT_EQ(presenter.quickWinsText(), QStringLiteral("4 MB of safe-to-clear junk"));
}

TEST_F(OverviewPresenterTest, QuickWinsLeadToCleanup)
{
    store.setSidebar(StorageStore::SidebarItem::overview);
    presenter.openCleanup();
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::cleanup);
}

} // namespace
} // namespace corvane
