#include "map/ui/explorer_presenter.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "map/explorer_fixture.h"

namespace corvane {
namespace {

class ExplorerPresenterTest : public test::ExplorerFixture {
protected:
    ExplorerPresenter presenter{store};
};

TEST_F(ExplorerPresenterTest, BeforeAScanThereIsNothingToSay)
{
    EXPECT_TRUE(presenter.folderName().isEmpty());
    EXPECT_TRUE(presenter.fileCount().isEmpty());
    EXPECT_FALSE(presenter.canGoUp());
    EXPECT_FALSE(presenter.isEmpty());
}

TEST_F(ExplorerPresenterTest, NamesTheFolderItsSizeAndItsFiles)
{
    addFile("Films/a.mov", 3'000'000);
    addFile("Films/b.mov", 2'500'000);
    scanHome();
    EXPECT_EQ(presenter.folderName(), QStringLiteral("studio"));
    EXPECT_EQ(presenter.folderSize(), QStringLiteral("5.5 MB"));
    EXPECT_EQ(presenter.fileCount(), QStringLiteral("2 files"));
}

TEST_F(ExplorerPresenterTest, OneFileIsCountedInTheSingular)
{
    addFile("a.mov", 3'000'000);
    scanHome();
    EXPECT_EQ(presenter.fileCount(), QStringLiteral("1 file"));
}

TEST_F(ExplorerPresenterTest, ThousandsAreGrouped)
{
    for (int i = 0; i < 1'234; ++i)
        addFile("small" + std::to_string(i), 10);
    scanHome();
    EXPECT_EQ(presenter.fileCount(), QStringLiteral("1,234 files"));
}

TEST_F(ExplorerPresenterTest, FollowsTheFolderAndTheTree)
{
    addFile("Films/a.mov", 3'000'000);
    addFile("Films/b.mov", 2'500'000);
    scanHome();
    const QSignalSpy changed(&presenter, &ExplorerPresenter::changed);
    open("Films");
    EXPECT_EQ(presenter.folderName(), QStringLiteral("Films"));
    EXPECT_EQ(changed.count(), 1);
    removeItem("Films/b.mov", 2'500'000);
    EXPECT_EQ(presenter.folderSize(), QStringLiteral("3 MB"));
    EXPECT_GE(changed.count(), 2);
}

TEST_F(ExplorerPresenterTest, OneLevelUpIsTheContainingFolderAndNothingAtTheRoot)
{
    addFile("Films/a.mov", 3'000'000);
    scanHome();
    EXPECT_FALSE(presenter.canGoUp());
    presenter.goUp();
    EXPECT_EQ(store.currentFolder(), store.root());
    open("Films");
    EXPECT_TRUE(presenter.canGoUp());
    presenter.goUp();
    EXPECT_EQ(store.currentFolder(), store.root());
}

TEST_F(ExplorerPresenterTest, TheHelpTextOfTheWayUpNamesItsShortcut)
{
#ifdef Q_OS_MACOS
    EXPECT_EQ(presenter.upText(), QStringLiteral("Up one level (⌘↑)"));
#else
    EXPECT_EQ(presenter.upText(), QStringLiteral("Up one level (Ctrl+↑)"));
#endif
}

TEST_F(ExplorerPresenterTest, AnEmptyFolderHasNothingBig)
{
    addFolder("Empty");
    scanHome();
    EXPECT_TRUE(presenter.isEmpty());
    EXPECT_EQ(presenter.emptySymbol(), QStringLiteral("tray"));
    EXPECT_EQ(presenter.emptyTitle(), QStringLiteral("Nothing big here"));
    EXPECT_EQ(presenter.emptyText(), QStringLiteral("This folder is empty."));
}

TEST_F(ExplorerPresenterTest, AnUnreadableRootOfAnotherUserNamesTheOwner)
{
    fake.files.addFile("/srv/films/a", 1);
    fake.files.setOwner("/srv/films", "studio");
    fake.files.failListing("/srv/films", std::errc::permission_denied);
    scan("/srv/films");
    EXPECT_EQ(presenter.emptyText(), QStringLiteral("It belongs to studio, and you don't have permission to read it."));
}

TEST_F(ExplorerPresenterTest, AnUnreadableRootIsLocked)
{
    fake.files.failListing(home, std::errc::permission_denied);
    scanHome();
    ASSERT_TRUE(store.root()->unreadable);
    EXPECT_TRUE(presenter.isEmpty());
    EXPECT_EQ(presenter.emptySymbol(), QStringLiteral("lock"));
    EXPECT_EQ(presenter.emptyTitle(), QStringLiteral("Can't read this folder"));
    EXPECT_EQ(presenter.emptyText(), QStringLiteral("You don't have permission to read it."));
    fake.files.setSystemKind(SystemKind::mac);
    EXPECT_EQ(presenter.emptyText(),
              QStringLiteral("macOS blocked access. Granting Full Disk Access usually fixes this."));
}

TEST_F(ExplorerPresenterTest, AFolderThatHoldsOnlySmallFilesIsNotEmpty)
{
    addFile("note.txt", 500);
    scanHome();
    EXPECT_FALSE(presenter.isEmpty());
}

} // namespace
} // namespace corvane
