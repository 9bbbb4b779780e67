#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include <QAccessible>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include "map/explorer_fixture.h"
#include "map/ui/treemap_view.h"
#include "shell/screen_scene.h"
#include "shell/ui/theme.h"
#include "shell/without_motion.h"
#include "support/patience.h"

namespace corvane {
namespace {

/// The whole screen in its own window, operated by mouse and keyboard.
class ExplorerScreenTest : public test::ExplorerFixture, WithoutMotion {
protected:
    ExplorerScreenTest()
    {
        addFile("Films/a.mov", 30'000'000);
        addFile("Films/Sub/b.mov", 20'000'000);
        addFile("Projects/harbor/c.zip", 25'000'000);
        addFile("Projects/d.zip", 1'000'000);
        addFile("film.mov", 10'000'000);
        addFile("Library/Caches/c", 8'000'000);
        addFile("small1", 900'000);
        addFile("small2", 800'000);
    }

    void show(QSize size = {1064, 700})
    {
        scanHome();
        showScreen(size);
    }
    void showScreen(QSize size = {1064, 700})
    {
        scene = std::make_unique<ScreenScene>("Map/ExplorerScreen", size);
        ASSERT_TRUE(scene->isShown()) << scene->errors().toStdString();
        ASSERT_NE(map(), nullptr);
    }

    [[nodiscard]] TreemapView *map() const { return scene->window()->findChild<TreemapView *>("map"); }
    [[nodiscard]] QQuickItem *list() const { return scene->item("list"); }
    [[nodiscard]] QQuickItem *named(const QString &name, QAccessible::Role role) const
    {
        return scene->named(name, role);
    }
    /// The number of visible items that show this symbol.
    [[nodiscard]] int countSymbols(const QString &symbol) const
    {
        int count = 0;
        scene->visit([&](QQuickItem &item) { count += item.property("symbol") == symbol ? 1 : 0; });
        return count;
    }
    [[nodiscard]] QQuickItem *row(const QString &description) const
    {
        return named(description, QAccessible::ListItem);
    }
    [[nodiscard]] QQuickItem *button(const QString &name) const { return named(name, QAccessible::Button); }
    [[nodiscard]] QQuickItem *checkBox(const QString &name) const { return named(name, QAccessible::CheckBox); }
    void clickAt(QQuickItem *item, QPointF place, Qt::MouseButton mouseButton = Qt::LeftButton)
    {
        QTest::mouseClick(scene->window(), mouseButton, Qt::NoModifier, item->mapToScene(place).toPoint());
    }
    [[nodiscard]] bool tabTo(const QQuickItem *item) const { return scene->tabTo(item); }

    std::unique_ptr<ScreenScene> scene;
};

const QString films = QStringLiteral("Films, Folder, 50 MB");
const QString projects = QStringLiteral("Projects, Folder, 26 MB");
const QString film = QStringLiteral("film.mov, Videos, 10 MB");
#ifdef Q_OS_MACOS
const QString up = QStringLiteral("Up one level (⌘↑)");
#else
const QString up = QStringLiteral("Up one level (Ctrl+↑)");
#endif

TEST_F(ExplorerScreenTest, ShowsTheFilesTheMapAndTheList)
{
    show();
    EXPECT_NE(named(QStringLiteral("8 files"), QAccessible::StaticText), nullptr);
    EXPECT_NE(row(films), nullptr);
    EXPECT_NE(row(QStringLiteral("2 smaller files (< 1 MB), 1.7 MB")), nullptr);
    EXPECT_EQ(map()->layout().tile(0).label, "Films");
    EXPECT_FALSE(scene->item("emptyMap")->isVisible());
}

TEST_F(ExplorerScreenTest, TheMapHasItsMarginsAndTheListItsWidth)
{
    show();
    EXPECT_EQ(map()->mapToScene({0, 0}), QPointF(12, 56 + 12));
    EXPECT_EQ(map()->width(), 1064 - 324 - 12 - 8);
    EXPECT_EQ(map()->height(), 700 - 56 - 24);
    EXPECT_EQ(list()->x(), 1064 - 323);
    scene->window()->resize(824, 604);
    ASSERT_TRUE(QTest::qWaitFor([&] { return list()->x() == 824 - 283; }, patience)) << "narrower below 900";
    EXPECT_EQ(map()->width(), 824 - 284 - 12 - 8);
}

TEST_F(ExplorerScreenTest, AClickOnAFolderRowOpensIt)
{
    show();
    clickAt(row(films), {150, 19});
    EXPECT_EQ(store.currentFolder(), node("Films"));
}

TEST_F(ExplorerScreenTest, AClickOnAFileRowOpensNothing)
{
    show();
    clickAt(row(film), {150, 19});
    EXPECT_EQ(store.currentFolder(), store.root());
    EXPECT_TRUE(store.selection().empty());
}

TEST_F(ExplorerScreenTest, AClickOnTheCheckBoxSelectsAndOpensNothing)
{
    show();
    scene->click(checkBox(QStringLiteral("Projects")));
    EXPECT_TRUE(store.isSelected(at("Projects")));
    EXPECT_EQ(store.currentFolder(), store.root());
    scene->click(checkBox(QStringLiteral("Projects")));
    EXPECT_FALSE(store.isSelected(at("Projects")));
}

TEST_F(ExplorerScreenTest, TheCheckBoxOfAProtectedItemDoesNothing)
{
    show();
    scene->click(checkBox(QStringLiteral("Library")));
    EXPECT_TRUE(store.selection().empty());
    EXPECT_EQ(store.currentFolder(), store.root());
}

TEST_F(ExplorerScreenTest, HoveringATileMarksItsRow)
{
    show();
    const QPointF place =
        map()->layout().rect(map()->layout().indexOf(node("Projects").get())).topLeft() + QPointF(20, 8);
    QTest::mouseMove(scene->window(), map()->mapToScene(place).toPoint());
    EXPECT_TRUE(QTest::qWaitFor([&] { return row(projects)->property("marked").toBool(); }, patience));
    EXPECT_FALSE(row(films)->property("marked").toBool());
}

TEST_F(ExplorerScreenTest, HoveringARowRingsItsTileAlsoOverItsCheckBox)
{
    show();
    scene->hover(row(projects));
    EXPECT_EQ(map()->highlightedRow(), 1);
    scene->hover(checkBox(QStringLiteral("Projects")));
    EXPECT_EQ(map()->highlightedRow(), 1);
    scene->hover(row(films));
    EXPECT_EQ(map()->highlightedRow(), 0);
    QTest::mouseMove(scene->window(), QPoint(500, 20));
    EXPECT_EQ(map()->highlightedRow(), -1);
}

TEST_F(ExplorerScreenTest, ThePillFollowsThePointerAndStaysOnTheMap)
{
    show();
    QTest::mouseMove(scene->window(), map()->mapToScene({100, 200}).toPoint());
    ASSERT_TRUE(QTest::qWaitFor([&] { return scene->item("pill")->isVisible(); }, patience));
    EXPECT_EQ(scene->item("pill")->position(), QPointF(114, 218));
    QTest::mouseMove(scene->window(), map()->mapToScene({map()->width() - 4, map()->height() - 4}).toPoint());
    EXPECT_LE(scene->item("pill")->x() + scene->item("pill")->width(), map()->width());
    EXPECT_LE(scene->item("pill")->y() + scene->item("pill")->height(), map()->height());
}

// --- The breadcrumbs

TEST_F(ExplorerScreenTest, AtTheRootThereIsNoWayUp)
{
    show();
    ASSERT_NE(scene->item("upButton"), nullptr);
    EXPECT_FALSE(scene->item("upButton")->isEnabled());
    EXPECT_NE(button(QStringLiteral("studio")), nullptr);
}

TEST_F(ExplorerScreenTest, TheUpButtonOpensTheContainingFolder)
{
    show();
    open("Projects/harbor");
    scene->click(button(up));
    EXPECT_EQ(store.currentFolder(), node("Projects"));
}

TEST_F(ExplorerScreenTest, TheShortcutGoesUpFromWhereverTheFocusIs)
{
    show();
    open("Projects/harbor");
    list()->forceActiveFocus(Qt::TabFocusReason);
    scene->key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(store.currentFolder(), node("Projects"));
    map()->forceActiveFocus(Qt::TabFocusReason);
    scene->key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(store.currentFolder(), store.root());
    scene->key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(store.currentFolder(), store.root());
}

TEST_F(ExplorerScreenTest, ACrumbOpensItsFolder)
{
    show();
    open("Projects/harbor");
    QTest::qWait(20);
    scene->click(button(QStringLiteral("Projects")));
    EXPECT_EQ(store.currentFolder(), node("Projects"));
    scene->click(button(QStringLiteral("studio")));
    EXPECT_EQ(store.currentFolder(), store.root());
}

TEST_F(ExplorerScreenTest, TheSymbolsAreThoseOfTheSystem)
{
    show();
    open("Projects/harbor");
    QTest::qWait(20);
    EXPECT_EQ(countSymbols(QStringLiteral("chevron.compact.right")), 2) << "between three crumbs";
    store.open(store.root());
    QTest::qWait(20);
    EXPECT_EQ(countSymbols(QStringLiteral("chevron.compact.right")), 0) << "a single crumb";
    EXPECT_EQ(countSymbols(QStringLiteral("doc.on.doc")), 1) << "the small files";
}

TEST_F(ExplorerScreenTest, ALongWayCollapsesIntoAMenu)
{
    std::string path = "Deep";
    for (int i = 0; i < 12; ++i)
        path += "/a folder with a long name " + std::to_string(i);
    addFile(path + "/x.bin", 5'000'000);
    show();
    open(path);
    QTest::qWait(50);
    QQuickItem *ellipsis = nullptr;
    for (int hidden = 1; hidden < 13 && !ellipsis; ++hidden)
        ellipsis = named(QString::number(hidden) + QStringLiteral(" more folders"), QAccessible::Button);
    ASSERT_NE(ellipsis, nullptr);
    EXPECT_NE(button(QStringLiteral("studio")), nullptr);
    EXPECT_NE(button(QStringLiteral("a folder with a long name 11")), nullptr);
    EXPECT_EQ(button(QStringLiteral("Deep")), nullptr);
    scene->click(ellipsis);
    ASSERT_TRUE(QTest::qWaitFor([&] { return scene->isOpen("collapsedMenu"); }, patience));
    scene->click(named(QStringLiteral("Deep"), QAccessible::MenuItem));
    EXPECT_EQ(store.currentFolder(), node("Deep"));
}

// --- The keyboard

TEST_F(ExplorerScreenTest, TabLeadsFromTheBandToTheMapAndTheList)
{
    show();
    open("Projects");
    scene->item("upButton")->forceActiveFocus(Qt::TabFocusReason);
    EXPECT_TRUE(tabTo(map()));
    EXPECT_TRUE(map()->hasVisualFocus());
    EXPECT_TRUE(tabTo(list()));
    EXPECT_TRUE(row(QStringLiteral("harbor, Folder, 25 MB"))->property("ringed").toBool());
}

TEST_F(ExplorerScreenTest, TheListIsWorkedByKeys)
{
    show();
    list()->forceActiveFocus(Qt::TabFocusReason);
    scene->key(Qt::Key_Down);
    scene->key(Qt::Key_Space);
    EXPECT_TRUE(store.isSelected(at("Projects")));
    scene->key(Qt::Key_End);
    EXPECT_EQ(scene->item("contents")->property("currentIndex").toInt(), 4);
    scene->key(Qt::Key_Home);
    EXPECT_EQ(scene->item("contents")->property("currentIndex").toInt(), 0);
    scene->key(Qt::Key_Return);
    EXPECT_EQ(store.currentFolder(), node("Films"));
    scene->key(Qt::Key_Escape);
    EXPECT_EQ(store.currentFolder(), store.root());
}

TEST_F(ExplorerScreenTest, GoingUpMakesTheRowOneCameFromTheCurrentOne)
{
    show();
    open("Projects");
    store.openParent();
    EXPECT_EQ(scene->item("contents")->property("currentIndex").toInt(), 1);
}

TEST_F(ExplorerScreenTest, RowsAreRingedOnlyAfterTheKeyboardWasUsed)
{
    show();
    clickAt(row(film), {150, 19});
    EXPECT_TRUE(list()->hasActiveFocus());
    EXPECT_FALSE(row(film)->property("ringed").toBool());
    scene->key(Qt::Key_Up);
    EXPECT_TRUE(row(projects)->property("ringed").toBool()) << "the keys go on from the row of the click";
    clickAt(row(film), {150, 19});
    EXPECT_FALSE(row(film)->property("ringed").toBool());
}

// --- Menus

TEST_F(ExplorerScreenTest, ARightClickOnARowOpensItsMenu)
{
    show();
    clickAt(row(film), {150, 19}, Qt::RightButton);
    ASSERT_TRUE(QTest::qWaitFor([&] { return scene->isOpen("rowMenu"); }, patience));
    QQuickItem *select = named(QStringLiteral("Select for Removal"), QAccessible::MenuItem);
    ASSERT_NE(select, nullptr);
    EXPECT_TRUE(named(QStringLiteral("Open"), QAccessible::MenuItem)->isEnabled()) << "a file";
    scene->click(select);
    EXPECT_TRUE(store.isSelected(at("film.mov")));
}

TEST_F(ExplorerScreenTest, ARightClickOnATileOpensItsMenu)
{
    show();
    const QPointF place =
        map()->layout().rect(map()->layout().indexOf(node("Projects").get())).topLeft() + QPointF(20, 8);
    clickAt(map(), place, Qt::RightButton);
    ASSERT_TRUE(QTest::qWaitFor([&] { return scene->isOpen("tileMenu"); }, patience));
    scene->click(named(QStringLiteral("Open"), QAccessible::MenuItem));
    EXPECT_EQ(store.currentFolder(), node("Projects"));
}

TEST_F(ExplorerScreenTest, TheMenuKeyOpensTheMenuOfTheCurrentRow)
{
    show();
    list()->forceActiveFocus(Qt::TabFocusReason);
    scene->key(Qt::Key_Menu);
    ASSERT_TRUE(QTest::qWaitFor([&] { return scene->isOpen("rowMenu"); }, patience));
    EXPECT_TRUE(named(QStringLiteral("Open"), QAccessible::MenuItem)->isEnabled());
}

// --- Empty folders

TEST_F(ExplorerScreenTest, AnEmptyFolderSaysSoInPlaceOfTheMap)
{
    addFolder("Empty");
    scan(at("Empty"));
    showScreen();
    EXPECT_TRUE(scene->item("emptyMap")->isVisible());
    EXPECT_FALSE(map()->isVisible());
    EXPECT_EQ(scene->item("emptyMap")->property("title").toString(), QStringLiteral("Nothing big here"));
    EXPECT_EQ(scene->item("emptyMap")->property("symbol").toString(), QStringLiteral("tray"));
}

TEST_F(ExplorerScreenTest, AnUnreadableRootIsLocked)
{
    fake.files.failListing(home, std::errc::permission_denied);
    show();
    EXPECT_TRUE(scene->item("emptyMap")->isVisible());
    EXPECT_EQ(scene->item("emptyMap")->property("title").toString(), QStringLiteral("Can't read this folder"));
    EXPECT_EQ(scene->item("emptyMap")->property("symbol").toString(), QStringLiteral("lock"));
}

TEST_F(ExplorerScreenTest, ARescanEmptiesTheScreenAndFillsItAgain)
{
    show();
    store.scanHome();
    EXPECT_EQ(map()->layout().count(), 0);
    EXPECT_EQ(scene->item("contents")->property("count").toInt(), 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return store.phase() == StorageStore::Phase::ready; }, patience));
    EXPECT_NE(map()->layout().count(), 0);
    EXPECT_NE(scene->item("contents")->property("count").toInt(), 0);
}

TEST_F(ExplorerScreenTest, AStoppedScanIsMarkedBesideItsFiles)
{
    show();
    EXPECT_EQ(named(QStringLiteral("Partial: the scan was stopped"), QAccessible::StaticText), nullptr);
    store.scanHome();
    store.stopScan();
    ASSERT_TRUE(QTest::qWaitFor([&] { return store.phase() == StorageStore::Phase::ready; }, patience));
    EXPECT_NE(named(QStringLiteral("Partial: the scan was stopped"), QAccessible::StaticText), nullptr);
}

// --- Screen readers

TEST_F(ExplorerScreenTest, TheMapIsReachedFromTheWindow)
{
    show();
    std::function<bool(QAccessibleInterface *)> reaches = [&](QAccessibleInterface *from) {
        if (!from)
            return false;
        if (from->object() == map())
            return true;
        for (int i = 0; i < from->childCount(); ++i) {
            if (reaches(from->child(i)))
                return true;
        }
        return false;
    };
    EXPECT_TRUE(reaches(QAccessible::queryAccessibleInterface(scene->window())));
    EXPECT_NE(QAccessible::queryAccessibleInterface(map())->parent(), nullptr);
}

TEST_F(ExplorerScreenTest, TheListIsAListWithTheFoldersName)
{
    show();
    EXPECT_EQ(QuickScene::accessibleRole(list()), QAccessible::List);
    EXPECT_EQ(QuickScene::accessibleName(list()), QStringLiteral("studio"));
}

TEST_F(ExplorerScreenTest, TheRowThatTheKeyboardIsOnSaysSo)
{
    show();
    list()->forceActiveFocus(Qt::TabFocusReason);
    scene->key(Qt::Key_Down);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(row(projects))->state().focused);
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(row(films))->state().focused);
}

TEST_F(ExplorerScreenTest, PressingARowOpensItsFolder)
{
    show();
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(row(films));
    ASSERT_NE(interface->actionInterface(), nullptr);
    interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(store.currentFolder(), node("Films"));
}

} // namespace
} // namespace corvane
