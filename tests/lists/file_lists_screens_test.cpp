#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>

#include "lists/lists_fixture.h"
#include "lists/ui/file_list_presenter.h"
#include "shell/screen_scene.h"

namespace corvane {
namespace {

/// The whole screens in their own window, operated by mouse and keyboard.
class FileListsScreensTest : public test::ListsFixture {
protected:
    void show(const QByteArray &screen, QSize size = {1064, 744})
    {
        addMany();
        scanHome();
        scene = std::make_unique<ScreenScene>("Lists/" + screen, size);
        ASSERT_TRUE(scene->isShown()) << scene->errors().toStdString();
        const auto *const presenter =
            scene->item("lists.table")->parentItem()->parentItem()->property("presenter").value<FileListPresenter *>();
        ASSERT_NE(presenter, nullptr);
        model = const_cast<FileListPresenter *>(presenter)->files();
    }
    void showLarge(QSize size = {1064, 744}) { show("LargeFilesScreen", size); }
    static void settle() { ScreenScene::settle(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        scene->key(key, modifiers);
        settle();
    }
    [[nodiscard]] QQuickItem *row(const QString &name) const
    {
        return scene->find([&](QQuickItem *item) {
            return item->property("highlighted").isValid() && item->property("iconKey").isValid() &&
                   item->property("name").toString() == name;
        });
    }
    void clickRow(const QString &name, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                  Qt::MouseButton button = Qt::LeftButton)
    {
        QQuickItem *const item = row(name);
        ASSERT_NE(item, nullptr) << name.toStdString();
        QTest::mouseClick(scene->window(), button, modifiers,
                          item->mapToScene(QPointF(300, item->height() / 2)).toPoint());
        settle();
    }
    [[nodiscard]] QQuickItem *title(const QString &name) const { return scene->named(name, QAccessible::Button); }
    [[nodiscard]] bool shows(const QString &text) const { return scene->shows(text); }
    [[nodiscard]] bool tabTo(const QQuickItem *item) const { return scene->tabTo(item); }
    void takeKeyboard()
    {
        ASSERT_TRUE(tabTo(scene->item("lists.table")));
        settle();
    }

    std::unique_ptr<ScreenScene> scene;
    FileTableModel *model = nullptr;
};

TEST_F(FileListsScreensTest, LargeFilesShowsItsListWithItsFilters)
{
    showLarge();
    for (const char *text : {"Large Files", "5 items · 3.5 GB", "Minimum size", "≥ 100 MB", "Type", "All types",
                             "Filter by name", "Name", "Size", "Kind", "Modified", "Location", "Select All"})
        EXPECT_TRUE(shows(QString::fromUtf8(text))) << text;
    EXPECT_NE(row(QStringLiteral("Interview.mov")), nullptr);
    EXPECT_EQ(row(QStringLiteral("little.pdf")), nullptr);
}

TEST_F(FileListsScreensTest, OldFilesShowsItsListWithItsFilters)
{
    show("OldFilesScreen");
    for (const char *text : {"Old Files", "4 items untouched for 1 year · 2.12 GB", "Untouched for", "1 year",
                             "Minimum size", "≥ 10 MB", "Filter by name"})
        EXPECT_TRUE(shows(QString::fromUtf8(text))) << text;
    EXPECT_EQ(row(QStringLiteral("new.mov")), nullptr);
}

TEST_F(FileListsScreensTest, ATextThatMatchesNoNameShowsTheEmptyStateAndNoTable)
{
    showLarge();
    scene->item("lists.search")->setProperty("text", QStringLiteral("nothing has this name"));
    settle();
    EXPECT_TRUE(shows(QStringLiteral("No files match")));
    EXPECT_TRUE(shows(QStringLiteral("Try a smaller minimum size or a different type.")));
    EXPECT_EQ(title(QStringLiteral("Name")), nullptr);
    EXPECT_FALSE(scene->item("lists.selectAll")->isEnabled());
}

TEST_F(FileListsScreensTest, OldFilesSaysThatNothingIsStale)
{
    show("OldFilesScreen");
    scene->item("lists.search")->setProperty("text", QStringLiteral("nothing has this name"));
    settle();
    EXPECT_TRUE(shows(QStringLiteral("Nothing stale here")));
    EXPECT_TRUE(shows(QStringLiteral("No files of that size have gone untouched that long.")));
}

TEST_F(FileListsScreensTest, ATitleSortsAndOnceMoreTheOtherWayRound)
{
    showLarge();
    scene->click(title(QStringLiteral("Name")));
    settle();
    EXPECT_EQ(names(*model).first(), QStringLiteral("Interview.mov"));
    scene->click(title(QStringLiteral("Name")));
    settle();
    EXPECT_EQ(names(*model).first(), QStringLiteral("undated.pdf"));
    ASSERT_TRUE(tabTo(title(QStringLiteral("Modified"))));
    press(Qt::Key_Space);
    EXPECT_EQ(model->sortColumn(), static_cast<int>(FileColumn::modified));
    EXPECT_FALSE(QuickScene::accessible(title(QStringLiteral("Modified")))->text(QAccessible::Description).isEmpty());
}

TEST_F(FileListsScreensTest, AColumnIsResizedByItsEdgeAndByKeys)
{
    showLarge();
    QQuickItem *const kind = title(QStringLiteral("Kind"));
    ASSERT_NE(kind, nullptr);
    EXPECT_EQ(kind->width(), 160);
    const QPoint edge = kind->mapToScene(QPointF(kind->width() - 8, kind->height() / 2)).toPoint();
    QTest::mousePress(scene->window(), Qt::LeftButton, Qt::NoModifier, edge);
    QTest::mouseMove(scene->window(), edge + QPoint(20, 0));
    QTest::mouseMove(scene->window(), edge + QPoint(40, 0));
    QTest::mouseRelease(scene->window(), Qt::LeftButton, Qt::NoModifier, edge + QPoint(40, 0));
    EXPECT_EQ(kind->width(), 200);
    EXPECT_EQ(model->sortColumn(), static_cast<int>(FileColumn::size)) << "the edge does not sort";
    ASSERT_TRUE(tabTo(kind));
    press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(kind->width(), 192);
}

TEST_F(FileListsScreensTest, TheKeyboardMovesReachesSelectsAndFinds)
{
    showLarge();
    takeKeyboard();
    press(Qt::Key_Down);
    EXPECT_EQ(highlighted(*model), QStringList({"Interview.mov"}));
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(highlighted(*model), QStringList({"Interview.mov", "rushes.zip"}));
    press(Qt::Key_Space);
    EXPECT_EQ(store.selection().size(), 2U);
    press(Qt::Key_End);
    EXPECT_EQ(highlighted(*model), QStringList({"undated.pdf"}));
    press(Qt::Key_Delete);
    EXPECT_EQ(store.selection().size(), 3U);
    press(Qt::Key_Home);
    EXPECT_EQ(highlighted(*model), QStringList({"new.mov"}));
    press(Qt::Key_O);
    EXPECT_EQ(highlighted(*model), QStringList({"Old.zip"}));
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(model->highlightedCount(), 5);
    press(Qt::Key_Menu);
    EXPECT_TRUE(QTest::qWaitFor([&] { return scene->isOpen("lists.severalMenu"); }));
    EXPECT_TRUE(shows(QStringLiteral("Select 5 for Removal")));
}

TEST_F(FileListsScreensTest, PressesWithCtrlAndShiftHighlightSeveralRows)
{
    showLarge();
    clickRow(QStringLiteral("Interview.mov"));
    clickRow(QStringLiteral("Old.zip"), Qt::ShiftModifier);
    EXPECT_EQ(highlighted(*model), QStringList({"Interview.mov", "rushes.zip", "Old.zip"}));
    clickRow(QStringLiteral("rushes.zip"), Qt::ControlModifier);
    EXPECT_EQ(highlighted(*model), QStringList({"Interview.mov", "Old.zip"}));
    clickRow(QStringLiteral("Old.zip"), Qt::NoModifier, Qt::RightButton);
    ASSERT_TRUE(QTest::qWaitFor([&] { return scene->isOpen("lists.severalMenu"); }));
    scene->click(scene->named(QStringLiteral("Select 2 for Removal"), QAccessible::MenuItem));
    EXPECT_EQ(store.selectedTotal(), 1'400 * megabyte);
}

TEST_F(FileListsScreensTest, OneRowHasTheCommonMenu)
{
    showLarge();
    clickRow(QStringLiteral("Old.zip"), Qt::NoModifier, Qt::RightButton);
    ASSERT_TRUE(QTest::qWaitFor([&] { return scene->isOpen("lists.menu"); }));
    EXPECT_TRUE(shows(QStringLiteral("Copy Path")));
    scene->click(scene->named(QStringLiteral("Select for Removal"), QAccessible::MenuItem));
    EXPECT_TRUE(store.isSelected(at("Downloads/Old.zip")));
}

TEST_F(FileListsScreensTest, AFilterChosenByKeyboardChangesTheList)
{
    showLarge();
    ASSERT_TRUE(tabTo(scene->item("lists.type")));
    press(Qt::Key_Down);
    EXPECT_EQ(names(*model), QStringList({"new.mov", "Interview.mov"}));
    EXPECT_EQ(scene->item("lists.type")->property("displayText"), QStringLiteral("Videos"));
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(scene->item("lists.search")->hasActiveFocus());
    press(Qt::Key_Down);
    EXPECT_TRUE(scene->item("lists.table")->hasActiveFocus());
}

} // namespace
} // namespace corvane
