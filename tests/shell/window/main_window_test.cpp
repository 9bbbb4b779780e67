#include <future>

#include <QMimeData>
#include <QQmlAbstractUrlInterceptor>

#include "shell/window/main_window_fixture.h"

namespace corvane {
namespace {

using Item = StorageStore::SidebarItem;
using Phase = StorageStore::Phase;

/// An installation without the file of Qt's folder dialog.
class NoFolderDialog final : public QQmlAbstractUrlInterceptor {
public:
    QUrl intercept(const QUrl &url, DataType) override
    {
        return url.fileName() == QLatin1String("QtFolderDialog.qml") ? QUrl(QStringLiteral("qrc:/missing.qml")) : url;
    }
};

TEST_F(MainWindowTest, HasItsMinimumSize)
{
    EXPECT_EQ(window->minimumSize(), QSize(1040, 660));
    EXPECT_EQ(window->size(), QSize(1280, 800));
}

TEST_F(MainWindowTest, TheFirstKeyPressEndsTheUseOfThePointer)
{
    EXPECT_TRUE(window->property("pointerInUse").toBool());
    QTest::keyClick(window, Qt::Key_Shift);
    EXPECT_FALSE(window->property("pointerInUse").toBool());
}

TEST_F(MainWindowTest, AScreenThatNeedsAScanAsksForItFirst)
{
    EXPECT_EQ(item("mapScreen"), nullptr);
    click("requiresScan.scan");
    EXPECT_EQ(store.lastScanPath(), "/home/studio");
    ASSERT_TRUE(waitForItem("mapScreen"));
    EXPECT_EQ(item("requiresScan.scan"), nullptr);
}

TEST_F(MainWindowTest, ARunningScanCanBeStoppedWhereItIsShown)
{
    Gate gate = blockFolders();
    click("scanButton");
    EXPECT_EQ(store.phase(), Phase::scanning);
    EXPECT_EQ(item("requiresScan.scan"), nullptr);
    EXPECT_NE(item("stopScanButton"), nullptr);
    click("requiresScan.stop");
    EXPECT_TRUE(store.progress()->isCancelled());
    gate.open();
    ASSERT_TRUE(waitForItem("mapScreen"));
    EXPECT_EQ(store.toast(), "Scan stopped — showing partial results");
}

TEST_F(MainWindowTest, ARescanTakesTheScreenAwayUntilItIsDone)
{
    scan();
    ASSERT_TRUE(waitForItem("mapScreen"));
    Gate gate = blockFolders();
    click("scanButton");
    EXPECT_EQ(item("mapScreen"), nullptr);
    click("stopScanButton");
    EXPECT_TRUE(store.progress()->isCancelled());
}

TEST_F(MainWindowTest, TheKeyboardStaysWithTheScanCommands)
{
    Gate gate = blockFolders();
    ASSERT_TRUE(waitForItem("scanButton"));
    item("scanButton")->forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_Space);
    EXPECT_EQ(store.phase(), Phase::scanning);
    EXPECT_EQ(window->activeFocusItem(), item("stopScanButton"));
}

TEST_F(MainWindowTest, TheScanMenuOffersTheOtherWays)
{
    Gate gate = blockFolders();
    click("scanMenuButton");
    ASSERT_TRUE(waitForItem("scanMenu.disk"));
    click("scanMenu.disk");
    ASSERT_TRUE(waitFor([this] { return store.phase() == Phase::scanning; }));
    EXPECT_EQ(store.lastScanPath(), "/");
}

TEST_F(MainWindowTest, AScreenThatNeedsNoScanIsShownAtOnce)
{
    click("sidebar.cleanup");
    EXPECT_EQ(store.sidebar(), Item::cleanup);
    EXPECT_NE(item("cleanupScreen"), nullptr);
    EXPECT_EQ(item("requiresScan.scan"), nullptr);
}

TEST_F(MainWindowTest, AScreenIsRecreatedEachTimeItIsShown)
{
    scan();
    ASSERT_TRUE(waitForItem("mapScreen"));
    EXPECT_EQ(window->property("made").toInt(), 1);
    click("sidebar.cleanup");
    EXPECT_EQ(item("mapScreen"), nullptr);
    click("sidebar.explorer");
    EXPECT_NE(item("mapScreen"), nullptr);
    EXPECT_EQ(window->property("made").toInt(), 2);
    click("sidebar.explorer");
    EXPECT_EQ(window->property("made").toInt(), 2);
}

TEST_F(MainWindowTest, ArrowKeysMoveThroughTheSidebar)
{
    ASSERT_TRUE(waitForItem("sidebar.explorer"));
    item("sidebar")->forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_Down);
    EXPECT_EQ(store.sidebar(), Item::cleanup);
    EXPECT_TRUE(item("sidebar.cleanup")->property("focused").toBool());
    key(Qt::Key_Down);
    EXPECT_EQ(store.sidebar(), Item::cleanup);
    key(Qt::Key_Home);
    EXPECT_EQ(store.sidebar(), Item::explorer);
    EXPECT_TRUE(item("sidebar.explorer")->property("focused").toBool());
}

TEST_F(MainWindowTest, TheSelectionBarComesAndGoesWithTheSelection)
{
    EXPECT_EQ(item("selectionBar"), nullptr);
    select("Movies/one.mov", 5'000'000);
    ASSERT_TRUE(waitForItem("selectionBar"));
    click("clearButton");
    EXPECT_TRUE(store.selection().empty());
    EXPECT_TRUE(waitFor([this] { return item("selectionBar") == nullptr; }));
}

TEST_F(MainWindowTest, MoveToTrashMovesWhatIsSelected)
{
    scan();
    select("Movies/one.mov", 5'000'000);
    click("moveToTrashButton");
    ASSERT_TRUE(waitFor([this] { return store.toast().has_value(); }));
    EXPECT_EQ(store.toast(), "Moved 1 item (5 MB) to Trash — empty it to free the space");
    EXPECT_FALSE(fake.files.has("/home/studio/Movies/one.mov"));
    EXPECT_TRUE(fake.files.has("/home/studio/Movies/two.mov"));
}

TEST_F(MainWindowTest, DroppingTheLastEntryClosesTheReview)
{
    select("Movies/one.mov", 5'000'000);
    select("Movies/two.mov", 4'000'000);
    openReview();
    click("reviewSheet.drop");
    EXPECT_TRUE(isOpen("reviewSheet"));
    EXPECT_EQ(store.selection().size(), 1u);
    click("reviewSheet.drop");
    EXPECT_TRUE(store.selection().empty());
    EXPECT_TRUE(waitFor([this] { return !isVisible("reviewSheet"); }));
}

TEST_F(MainWindowTest, TheReviewIsWorkedByKeys)
{
    select("Movies/one.mov", 5'000'000);
    select("Movies/two.mov", 4'000'000);
    openReview();
    item("reviewSheet.list")->forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_Down);
    key(Qt::Key_Delete);
    EXPECT_TRUE(store.isSelected("/home/studio/Movies/one.mov"));
    EXPECT_FALSE(store.isSelected("/home/studio/Movies/two.mov"));
    key(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([this] { return !isVisible("reviewSheet"); }));
    EXPECT_TRUE(store.isSelected("/home/studio/Movies/one.mov"));
}

TEST_F(MainWindowTest, ReturnInTheReviewMovesToTheTrash)
{
    select("Movies/one.mov", 5'000'000);
    openReview();
    key(Qt::Key_Return);
    EXPECT_TRUE(waitFor([this] { return !fake.files.has("/home/studio/Movies/one.mov"); }));
    EXPECT_TRUE(waitFor([this] { return !isVisible("reviewSheet"); }));
}

TEST_F(MainWindowTest, ReturnAndEscapeNeverDeleteForGood)
{
    select("Movies/one.mov", 5'000'000);
    openConfirmation();
    key(Qt::Key_Return);
    EXPECT_TRUE(waitFor([this] { return !isVisible("deleteConfirm"); }));
    EXPECT_TRUE(isOpen("reviewSheet"));

    click("reviewSheet.deletePermanently");
    ASSERT_TRUE(waitFor([this] { return isOpen("deleteConfirm"); }));
    key(Qt::Key_Tab);
    key(Qt::Key_Return);
    EXPECT_TRUE(waitFor([this] { return !isVisible("deleteConfirm"); }));

    click("reviewSheet.deletePermanently");
    ASSERT_TRUE(waitFor([this] { return isOpen("deleteConfirm"); }));
    key(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([this] { return !isVisible("deleteConfirm"); }));
    EXPECT_TRUE(isOpen("reviewSheet"));
    EXPECT_FALSE(store.isRemoving());
    EXPECT_TRUE(fake.files.has("/home/studio/Movies/one.mov"));
}

TEST_F(MainWindowTest, OnlyTheDeleteButtonDeletesForGood)
{
    select("Movies/one.mov", 5'000'000);
    openConfirmation();
    click("deleteConfirm.delete");
    ASSERT_TRUE(waitFor([this] { return store.toast().has_value(); }));
    EXPECT_EQ(store.toast(), "Deleted 1 item · freed 5 MB");
    EXPECT_FALSE(fake.files.has("/home/studio/Movies/one.mov"));
    EXPECT_TRUE(waitFor([this] { return !isVisible("reviewSheet") && !isVisible("deleteConfirm"); }));
}

TEST_F(MainWindowTest, DeletingItemsInTheTrashFromTheBarAsksFirst)
{
    fake.files.addFile("/home/studio/.Trash/old.mov", 3'000'000);
    fake.trash.setTrashFolders({"/home/studio/.Trash"});
    select("Movies/one.mov", 5'000'000);
    ASSERT_TRUE(waitForItem("selectionBar"));
    EXPECT_EQ(item("selectionBar.trashNote"), nullptr);
    select(".Trash/old.mov", 3'000'000);
    ASSERT_TRUE(waitForItem("selectionBar.trashNote"));
    EXPECT_EQ(item("selectionBar.trashNote")->property("text").toString(),
              "1 of them is in the Trash and will be deleted permanently");

    click("moveToTrashButton");
    ASSERT_TRUE(waitFor([this] { return isOpen("deleteConfirm"); }));
    EXPECT_EQ(object("deleteConfirm")->property("detail").toString(), "“old.mov”");
    key(Qt::Key_Return);
    EXPECT_TRUE(waitFor([this] { return !isVisible("deleteConfirm"); }));
    EXPECT_TRUE(fake.files.has("/home/studio/Movies/one.mov"));
    EXPECT_TRUE(fake.files.has("/home/studio/.Trash/old.mov"));

    openReview();
    EXPECT_NE(item("reviewSheet.trashNote"), nullptr);
    click("reviewSheet.moveToTrash");
    ASSERT_TRUE(waitFor([this] { return isOpen("deleteConfirm"); }));
    click("deleteConfirm.delete");
    ASSERT_TRUE(waitFor([this] { return store.toast().has_value(); }));
    EXPECT_EQ(store.toast(), "Moved 2 items (8 MB) to Trash — empty it to free the space");
    EXPECT_TRUE(waitFor([this] { return !isVisible("reviewSheet") && !isVisible("deleteConfirm"); }));
}

TEST_F(MainWindowTest, ARemovalIsStoppedFromTheBar)
{
    std::promise<void> goOn;
    fake.log->observe([waiting = goOn.get_future().share()](const std::string &line) {
        if (line == "trashItem /home/studio/Movies/one.mov")
            waiting.wait();
    });
    select("Movies/one.mov", 5'000'000);
    select("Movies/two.mov", 4'000'000);
    click("moveToTrashButton");
    ASSERT_TRUE(waitForItem("stopRemovalButton"));
    EXPECT_EQ(item("clearButton"), nullptr);
    click("stopRemovalButton");
    EXPECT_TRUE(store.isStopping());
    EXPECT_FALSE(item("stopRemovalButton")->isEnabled());
    goOn.set_value();
    ASSERT_TRUE(waitFor([this] { return store.toast().has_value(); }));
    EXPECT_EQ(store.toast(), "Moved 1 item (5 MB) to Trash — empty it to free the space");
    EXPECT_TRUE(fake.files.has("/home/studio/Movies/two.mov"));
    EXPECT_TRUE(waitForItem("clearButton"));
}

TEST_F(MainWindowTest, CommandsAreDisabledWhileASheetIsOpen)
{
    select("Movies/one.mov", 5'000'000);
    openReview();
    key(Qt::Key_R, Qt::ControlModifier);
    key(Qt::Key_Backspace, Qt::ControlModifier);
    key(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(store.phase(), Phase::idle);
    EXPECT_FALSE(store.isRemoving());
    EXPECT_EQ(store.sidebar(), Item::overview);
}

TEST_F(MainWindowTest, AClickOrEscapeDismissesTheToast)
{
    store.showToast("Done");
    click("toast");
    EXPECT_FALSE(store.toast().has_value());
    store.showToast("Done again");
    key(Qt::Key_Escape);
    EXPECT_FALSE(store.toast().has_value());
}

TEST_F(MainWindowTest, AFolderDroppedOnTheWindowIsScanned)
{
    Gate gate = blockFolders();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/home/studio/Movies")});
    const QPoint place(700, 400);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &drop);
    EXPECT_EQ(store.phase(), Phase::scanning);
    EXPECT_EQ(store.lastScanPath(), "/home/studio/Movies");
}

TEST_F(MainWindowTest, ChoosingAFolderOpensTheDialog)
{
    key(Qt::Key_O, Qt::ControlModifier);
    QObject *dialog = object("folderDialog");
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(waitFor([dialog] { return dialog->property("visible").toBool(); }));
    EXPECT_EQ(dialog->property("title").toString(), "Choose a folder or disk for Corvane to analyze");
    EXPECT_EQ(dialog->property("acceptLabel").toString(), "Scan");
}

TEST_F(MainWindowTest, WithoutAFolderDialogAToastNamesTheOtherWays)
{
    NoFolderDialog missing;
    scene->engine().addUrlInterceptor(&missing);
    for (int attempt = 0; attempt < 2; ++attempt) {
        key(Qt::Key_O, Qt::ControlModifier);
        ASSERT_TRUE(waitFor([this] { return store.toast().has_value(); }));
        EXPECT_EQ(store.toast(),
                  "No folder dialog is available. Drop a folder on the window, or start corvane with the folder.");
        EXPECT_TRUE(store.toastIsWarning());
        EXPECT_EQ(object("folderDialog"), nullptr);
        store.dismissToast();
    }
    scene->engine().removeUrlInterceptor(&missing);
}

} // namespace
} // namespace corvane
