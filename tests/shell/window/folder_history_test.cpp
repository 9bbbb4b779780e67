#include "shell/ui/window/folder_history.h"

#include <string>

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "map/explorer_fixture.h"

namespace corvane {
namespace {

class FolderHistoryTest : public test::ExplorerFixture {
protected:
    FolderHistoryTest()
    {
        addFile("Films/Sub/a.mov", 3'000'000);
        addFile("Music/b.flac", 2'000'000);
        store.setSidebar(StorageStore::SidebarItem::explorer);
    }
    [[nodiscard]] std::string shown() const { return store.currentFolder()->name; }

    FolderHistory history{store};
};

TEST_F(FolderHistoryTest, WithoutAScanThereIsNoWay)
{
    EXPECT_FALSE(history.canGoBack());
    EXPECT_FALSE(history.canGoForward());
    history.goBack();
    history.goForward();
    EXPECT_EQ(store.currentFolder(), nullptr);
}

TEST_F(FolderHistoryTest, WalksBackAndForwardAlongWhatWasShown)
{
    scanHome();
    open("Films/Sub");
    store.openParent();
    open("Music");
    history.goBack();
    EXPECT_EQ(shown(), "Films");
    history.goBack();
    EXPECT_EQ(shown(), "Sub");
    history.goBack();
    EXPECT_EQ(shown(), "studio");
    EXPECT_FALSE(history.canGoBack());
    history.goForward();
    history.goForward();
    history.goForward();
    EXPECT_EQ(shown(), "Music");
    EXPECT_FALSE(history.canGoForward());
}

TEST_F(FolderHistoryTest, OpeningAnotherFolderDiscardsTheForwardHistory)
{
    scanHome();
    open("Films");
    history.goBack();
    open("Music");
    EXPECT_FALSE(history.canGoForward());
    history.goBack();
    EXPECT_EQ(shown(), "studio");
}

TEST_F(FolderHistoryTest, ARemovedFolderIsPassedOver)
{
    scanHome();
    open("Films/Sub");
    open("Music");
    removeItem("Films", 3'000'000);
    ASSERT_TRUE(history.canGoBack());
    history.goBack();
    EXPECT_EQ(shown(), "studio");
}

TEST_F(FolderHistoryTest, TheHistorySurvivesARescan)
{
    scanHome();
    open("Films");
    scanHome();
    open("Music");
    while (history.canGoBack() && shown() != "Films")
        history.goBack();
    EXPECT_EQ(shown(), "Films");
    EXPECT_EQ(store.currentFolder(), node("Films")) << "of the tree of now";
}

TEST_F(FolderHistoryTest, ThereIsNoWayOutsideTheTree)
{
    scanHome();
    open("Films");
    scan(at("Music"));
    EXPECT_FALSE(history.canGoBack());
}

TEST_F(FolderHistoryTest, WalksOnlyWhereTheMapIsShown)
{
    scanHome();
    open("Films");
    QSignalSpy changed(&history, &FolderHistory::changed);
    store.setSidebar(StorageStore::SidebarItem::overview);
    EXPECT_FALSE(changed.isEmpty());
    EXPECT_FALSE(history.canGoBack());
    history.goBack();
    EXPECT_EQ(shown(), "Films");
}

TEST_F(FolderHistoryTest, TheButtonsOfTheMouseWalk)
{
    scanHome();
    open("Films");
    history.go(Qt::BackButton);
    EXPECT_EQ(shown(), "studio");
    history.go(Qt::LeftButton);
    history.go(Qt::ForwardButton);
    EXPECT_EQ(shown(), "Films");
}

TEST_F(FolderHistoryTest, ForgetsTheOldest)
{
    scanHome();
    for (std::size_t i = 0; i < FolderHistory::foldersKept; ++i)
        open(i % 2 == 0 ? "Films" : "Music");
    std::size_t steps = 0;
    for (; history.canGoBack(); ++steps)
        history.goBack();
    EXPECT_EQ(steps, FolderHistory::foldersKept - 1);
    EXPECT_EQ(shown(), "Films") << "the home is forgotten";
}

} // namespace
} // namespace corvane
