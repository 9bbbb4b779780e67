#include "shell/ui/window/scan_presenter.h"

#include <gmock/gmock.h>

#include <QSignalSpy>
#include <QTest>

#include "core/store/file_url.h"
#include "shell/store_with_films.h"

namespace corvane {
namespace {

using Phase = StorageStore::Phase;

struct ScanControls : testing::Test, StoreWithFilms {
    /// Delivers the running scan's result, as its thread would.
    void finish()
    {
        auto result = std::make_shared<StorageStore::ScanResult>();
        result->root = std::make_shared<FileNode>(store.lastScanPath(), FileNode::Kind::directory);
        store.finishScan(std::move(result), store.progress());
    }

    ScanPresenter presenter{store};
};

TEST_F(ScanControls, OfferAScanBeforeTheFirstOne)
{
    EXPECT_FALSE(presenter.isScanning());
    EXPECT_EQ(presenter.scanTitle(), "Scan");
    EXPECT_EQ(presenter.scanSymbol(), "");
    EXPECT_EQ(presenter.scanHelp(), "Scan your home folder");
}

TEST_F(ScanControls, OfferARescanOnceAScanExists)
{
    QSignalSpy changed(&presenter, &ScanPresenter::stateChanged);
    presenter.scanHome();
    EXPECT_TRUE(presenter.isScanning());
    EXPECT_GE(changed.size(), 1);
    finish();
    EXPECT_FALSE(presenter.isScanning());
    EXPECT_TRUE(presenter.hasScan());
    EXPECT_EQ(presenter.scanTitle(), "Rescan");
    EXPECT_EQ(presenter.scanSymbol(), "arrow.clockwise");
}

TEST_F(ScanControls, ARescanHidesTheOldScan)
{
    presenter.scanHome();
    finish();
    presenter.scanHome();
    EXPECT_FALSE(presenter.hasScan());
}

TEST_F(ScanControls, ARescanRepeatsTheLastScanAndItsTipNamesIt)
{
    presenter.scan();
    EXPECT_EQ(store.lastScanPath(), "/home/studio");
    finish();
    EXPECT_EQ(presenter.scanHelp(), "Scan your home folder");

    QSignalSpy changed(&presenter, &ScanPresenter::stateChanged);
    presenter.scanUrl(fileUrlOfPath("/home/studio/Movies"));
    finish();
    EXPECT_GE(changed.size(), 1);
    EXPECT_EQ(presenter.scanHelp(), "Scan “Movies” again");
    presenter.scan();
    EXPECT_TRUE(presenter.isScanning());
    EXPECT_EQ(store.lastScanPath(), "/home/studio/Movies");
    finish();

    presenter.scanEntireDisk();
    finish();
    EXPECT_EQ(presenter.scanHelp(), "Scan the entire disk again");
    presenter.scan();
    EXPECT_EQ(store.lastScanPath(), "/");
}

TEST_F(ScanControls, WithoutAScanToRepeatTheHomeFolderIsScanned)
{
    presenter.scanUrl(fileUrlOfPath("/home/studio/Movies"));
    finish();
    store.didRemove({.removed = {{"/home/studio/Movies", 1}}, .failures = {}}, false);
    EXPECT_EQ(presenter.scanTitle(), "Scan");
    EXPECT_EQ(presenter.scanHelp(), "Scan your home folder");
    presenter.scan();
    EXPECT_EQ(store.lastScanPath(), "/home/studio");
}

TEST_F(ScanControls, AStoppedScanIsMarkedUntilTheNext)
{
    presenter.scanHome();
    EXPECT_EQ(presenter.partialText(), "");
    presenter.stop();
    finish();
    EXPECT_EQ(presenter.partialText(), "Partial: the scan was stopped");
    presenter.scan();
    EXPECT_EQ(presenter.partialText(), "");
}

TEST_F(ScanControls, ScanWhatTheyNameAndNothingElse)
{
    presenter.scanHome();
    EXPECT_EQ(store.lastScanPath(), "/home/studio");
    EXPECT_EQ(presenter.heading(), "Scanning studio");
    presenter.scanEntireDisk();
    EXPECT_EQ(store.lastScanPath(), "/");
    EXPECT_EQ(presenter.heading(), "Scanning Macintosh HD");
}

TEST_F(ScanControls, StopAsksTheWalkToStop)
{
    presenter.scanHome();
    EXPECT_FALSE(store.progress()->isCancelled());
    presenter.stop();
    EXPECT_TRUE(store.progress()->isCancelled());
}

TEST_F(ScanControls, ChoosingAFolderAsksTheWindowOnce)
{
    QSignalSpy wanted(&presenter, &ScanPresenter::folderWanted);
    presenter.chooseFolder();
    EXPECT_EQ(wanted.size(), 1);
    EXPECT_EQ(store.phase(), Phase::idle);
    EXPECT_EQ(presenter.folderPrompt(), "Choose a folder or disk for Corvane to analyze");
}

TEST_F(ScanControls, ProgressIsWrittenForPeople)
{
    // Block the walk at its first folder, so that only the test sets figures.
    Gate gate = blockFolders();
    presenter.scanHome();
    EXPECT_EQ(presenter.filesCounted(), "0");
    EXPECT_EQ(presenter.spaceFound(), "Zero KB");

    store.progress()->record(187'406, 418'920'000'000,
                             "/home/studio/Mov\xff"
                             "ies");
    QTRY_COMPARE(presenter.filesCounted(), QStringLiteral("187,406"));
    EXPECT_TRUE(presenter.isScanning());
    EXPECT_EQ(presenter.filesCounted(), "187,406");
    EXPECT_EQ(presenter.spaceFound(), "418.92 GB");
    EXPECT_EQ(presenter.currentPath(), QString::fromUtf8("/home/studio/Mov\xef\xbf\xbd"
                                                         "ies"));
}

TEST_F(ScanControls, ADroppedFolderIsScanned)
{
    const QList<QUrl> folder{QUrl::fromLocalFile("/home/studio/Movies")};
    EXPECT_TRUE(presenter.accepts(folder));
    presenter.scanDropped(folder);
    EXPECT_EQ(store.phase(), Phase::scanning);
    EXPECT_EQ(store.lastScanPath(), "/home/studio/Movies");
}

TEST_F(ScanControls, ADroppedFileIsExplainedInTheToast)
{
    presenter.scanDropped({QUrl::fromLocalFile("/home/studio/notes.txt")});
    EXPECT_EQ(store.phase(), Phase::idle);
    ASSERT_TRUE(store.toast().has_value());
    EXPECT_TRUE(store.toastIsWarning());
}

TEST_F(ScanControls, SeveralDroppedItemsAndAddressesOfTheWebAreNotTaken)
{
    const QList<QUrl> two{QUrl::fromLocalFile("/home/studio"), QUrl::fromLocalFile("/home/studio/Movies")};
    const QList<QUrl> web{QUrl("https://example.com/home/studio")};
    for (const auto &urls : {two, web, QList<QUrl>()}) {
        EXPECT_FALSE(presenter.accepts(urls));
        presenter.scanDropped(urls);
    }
    EXPECT_EQ(store.phase(), Phase::idle);
    EXPECT_FALSE(store.toast().has_value());
}

TEST_F(ScanControls, LookForAFolderFromTheHomeFolderOn)
{
    EXPECT_EQ(presenter.firstFolder(), QUrl("file:///home/studio"));
}

} // namespace
} // namespace corvane
