#include "map/ui/folder_contents_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QColor>
#include <QSignalSpy>

#include "cleanup/dev_junk_rule.h"
#include "core/file_type.h"
#include "core/installed_tree.h"
#include "map/explorer_fixture.h"
#include "map/treemap_builder.h"
#include "shell/ui/qt_color.h"
#include "support/tree.h"

namespace corvane {
namespace {

using Model = FolderContentsModel;

class FolderContentsModelTest : public test::ExplorerFixture {
protected:
    FolderContentsModelTest()
    {
        addFile("Films/a.mov", 30'000'000);
        addFile("Films/Sub/b.mov", 20'000'000);
        addFile("Projects/c.zip", 20'000'000);
        addFile("film.mov", 10'000'000);
        addFile("X.app/Contents/MacOS/x", 5'000'000);
        addFile("small1", 1'000);
        addFile("small2", 2'000);
    }

    [[nodiscard]] QVariant data(int row, int role) const { return model.data(model.index(row), role); }
    [[nodiscard]] QStringList names() const
    {
        QStringList result;
        for (int row = 0; row < model.rowCount(); ++row)
            result << data(row, Model::NameRole).toString();
        return result;
    }
    [[nodiscard]] Qt::CheckState state(int row) const
    {
        return static_cast<Qt::CheckState>(data(row, Model::CheckStateRole).toInt());
    }
    [[nodiscard]] int rowOf(const QString &name) const { return static_cast<int>(names().indexOf(name)); }

    FolderContentsModel model{store};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(FolderContentsModelTest, BeforeAScanThereAreNoRows)
{
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(FolderContentsModelTest, RowsAreTheChildrenLargestFirstAndThenTheSmallFiles)
{
    scanHome();
    EXPECT_EQ(names(), QStringList({"Films", "Projects", "film.mov", "X.app", "2 smaller files (< 1 MB)"}));
    EXPECT_TRUE(data(4, Model::SmallFilesRole).toBool());
    EXPECT_EQ(data(4, Model::SizeTextRole).toString(), QStringLiteral("3 KB"));
    EXPECT_FALSE(data(4, Model::CheckableRole).toBool());
}

TEST_F(FolderContentsModelTest, OneSmallFileIsNamedInTheSingular)
{
    addFile("Single/note.txt", 10);
    scanHome();
    open("Single");
    EXPECT_EQ(names(), QStringList{"1 smaller file (< 1 MB)"});
}

TEST_F(FolderContentsModelTest, WithoutSmallFilesThereIsNoSuchRow)
{
    scanHome();
    open("Projects");
    EXPECT_EQ(names(), QStringList{"c.zip"});
}

TEST_F(FolderContentsModelTest, SizesAreShownAndComparedWithTheLargest)
{
    scanHome();
    EXPECT_EQ(data(0, Model::SizeTextRole).toString(), QStringLiteral("50 MB"));
    EXPECT_EQ(data(0, Model::FractionRole).toDouble(), 1.0);
    EXPECT_EQ(data(2, Model::FractionRole).toDouble(), 0.2);
}

TEST_F(FolderContentsModelTest, BarsHaveTheColorsOfTheTiles)
{
    scanHome();
    EXPECT_EQ(data(0, Model::BarColorRole).value<QColor>(), toQColor(TreemapBuilder::folderColor(0)));
    EXPECT_EQ(data(1, Model::BarColorRole).value<QColor>(), toQColor(TreemapBuilder::folderColor(1)));
    EXPECT_EQ(data(2, Model::BarColorRole).value<QColor>(), toQColor(FileType(FileType::video).color()));
    EXPECT_EQ(data(3, Model::BarColorRole).value<QColor>(), toQColor(FileType(FileType::app).color()));
}

TEST_F(FolderContentsModelTest, AnAggregateBeforeAFolderShiftsItsColorAsOnTheMap)
{
    for (int i = 0; i < 40; ++i)
        addFile("Mixed/small" + std::to_string(i), 900'000);
    addFile("Mixed/folder/x", 2'000'000);
    scanHome();
    open("Mixed");
    ASSERT_EQ(names().first(), QStringLiteral("folder"));
    EXPECT_EQ(data(0, Model::BarColorRole).value<QColor>(), toQColor(TreemapBuilder::folderColor(1)));
}

TEST_F(FolderContentsModelTest, AClickOpensFoldersAndPackagesButNoFiles)
{
    scanHome();
    EXPECT_TRUE(data(0, Model::OpensRole).toBool());
    EXPECT_FALSE(data(2, Model::OpensRole).toBool());
    EXPECT_TRUE(data(3, Model::OpensRole).toBool());
    EXPECT_FALSE(data(4, Model::OpensRole).toBool());
    model.click(2);
    model.click(4);
    model.click(-1);
    model.click(99);
    EXPECT_EQ(store.currentFolder(), store.root());
    EXPECT_THAT(fake.log->lines(), testing::Not(testing::Contains(testing::HasSubstr("openUrl"))));
    model.click(3);
    EXPECT_EQ(store.currentFolder(), node("X.app"));
}

TEST_F(FolderContentsModelTest, TheSecondClickOpensTheFileThatWasClickedFirst)
{
    scanHome();
    ASSERT_EQ(names()[2], QStringLiteral("film.mov"));
    model.doubleClick(2);
    EXPECT_THAT(fake.log->lines(), testing::Not(testing::Contains(testing::HasSubstr("openUrl"))));
    model.click(2);
    model.doubleClick(2);
    EXPECT_THAT(fake.log->lines(), testing::Contains("openUrl file:///home/studio/film.mov"));
    model.click(0);
    model.doubleClick(0);
    model.doubleClick(99);
    EXPECT_THAT(fake.log->lines(), testing::Contains(testing::HasSubstr("openUrl")).Times(1))
        << "what stands in the place of the folder by now is not meant";
}

TEST_F(FolderContentsModelTest, OpeningShowsFoldersInTheMapAndFilesInTheirProgram)
{
    scanHome();
    model.open(2);
    EXPECT_THAT(fake.log->lines(), testing::Contains("openUrl file:///home/studio/film.mov"));
    model.open(4);
    model.open(-1);
    EXPECT_EQ(store.currentFolder(), store.root());
    model.open(0);
    EXPECT_NE(store.currentFolder(), store.root());
}

TEST_F(FolderContentsModelTest, NamesWithAnExtensionGiveWayInTheMiddle)
{
    addFile("README", 3'000'000);
    addFile("node.js/x", 4'000'000);
    scanHome();
    EXPECT_EQ(data(rowOf("film.mov"), Model::ElideRole).toInt(), Qt::ElideMiddle);
    EXPECT_EQ(data(rowOf("X.app"), Model::ElideRole).toInt(), Qt::ElideMiddle);
    EXPECT_EQ(data(rowOf("README"), Model::ElideRole).toInt(), Qt::ElideRight);
    EXPECT_EQ(data(rowOf("node.js"), Model::ElideRole).toInt(), Qt::ElideRight);
}

TEST_F(FolderContentsModelTest, ARowIsDescribedInWords)
{
    scanHome();
    EXPECT_EQ(data(0, Model::DescriptionRole).toString(), QStringLiteral("Films, Folder, 50 MB"));
    EXPECT_EQ(data(2, Model::DescriptionRole).toString(), QStringLiteral("film.mov, Videos, 10 MB"));
    EXPECT_EQ(data(4, Model::DescriptionRole).toString(), QStringLiteral("2 smaller files (< 1 MB), 3 KB"));
}

TEST_F(FolderContentsModelTest, ANameThatIsNoTextIsShownWithReplacements)
{
    addFile("bro\xffken.mov", 40'000'000);
    scanHome();
    EXPECT_EQ(names().at(1), QStringLiteral("bro\uFFFDken.mov"));
    model.toggle(1);
    EXPECT_TRUE(store.isSelected(at("bro\xffken.mov")));
    EXPECT_EQ(state(1), Qt::Checked);
}

// --- Folders

TEST_F(FolderContentsModelTest, AnotherFolderResetsTheModelAndShowsItsFirstRow)
{
    scanHome();
    const QSignalSpy reset(&model, &Model::modelReset);
    const QSignalSpy shown(&model, &Model::folderShown);
    open("Films");
    EXPECT_EQ(reset.count(), 1);
    ASSERT_EQ(shown.count(), 1);
    EXPECT_EQ(shown[0][0].toInt(), 0);
    EXPECT_EQ(names(), QStringList({"a.mov", "Sub"}));
}

TEST_F(FolderContentsModelTest, GoingUpShowsTheRowOneCameFrom)
{
    scanHome();
    open("Projects");
    const QSignalSpy shown(&model, &Model::folderShown);
    store.openParent();
    ASSERT_EQ(shown.count(), 1);
    EXPECT_EQ(shown[0][0].toInt(), 1);
}

TEST_F(FolderContentsModelTest, JumpingUpSeveralLevelsShowsTheRowOnTheWay)
{
    scanHome();
    open("Films/Sub");
    const QSignalSpy shown(&model, &Model::folderShown);
    store.open(store.root());
    ASSERT_EQ(shown.count(), 1);
    EXPECT_EQ(shown[0][0].toInt(), 0);
}

// --- Removal

TEST_F(FolderContentsModelTest, ARemovalTakesItsRowOutAndChangesTheOthers)
{
    scanHome();
    const QSignalSpy reset(&model, &Model::modelReset);
    const QSignalSpy removed(&model, &Model::rowsRemoved);
    const QSignalSpy changed(&model, &Model::dataChanged);
    removeItem("Films", 50'000'000);
    EXPECT_EQ(names(), QStringList({"Projects", "film.mov", "X.app", "2 smaller files (< 1 MB)"}));
    EXPECT_EQ(reset.count(), 0);
    ASSERT_EQ(removed.count(), 1);
    EXPECT_EQ(removed[0][1].toInt(), 0);
    EXPECT_GE(changed.count(), 1);
    EXPECT_EQ(data(0, Model::FractionRole).toDouble(), 1.0) << "the largest of what is left";
    EXPECT_EQ(data(0, Model::BarColorRole).value<QColor>(), toQColor(TreemapBuilder::folderColor(0)));
}

TEST_F(FolderContentsModelTest, SeveralRemovalsTakeOutEveryStretchOfRows)
{
    for (int i = 0; i < 10; ++i)
        addFile("Many/f" + std::to_string(i), 20'000'000 - i * 1'000'000);
    scanHome();
    open("Many");
    const QSignalSpy removed(&model, &Model::rowsRemoved);
    store.didRemove(
        {.removed = {{at("Many/f1"), 1}, {at("Many/f2"), 1}, {at("Many/f5"), 1}, {at("Many/f9"), 1}}, .failures = {}},
        false);
    EXPECT_EQ(names(), QStringList({"f0", "f3", "f4", "f6", "f7", "f8"}));
    EXPECT_EQ(removed.count(), 3);
}

TEST_F(FolderContentsModelTest, ARemovalInsideAChildChangesItsSize)
{
    scanHome();
    removeItem("Films/Sub/b.mov", 20'000'000);
    EXPECT_EQ(data(0, Model::SizeTextRole).toString(), QStringLiteral("30 MB"));
    EXPECT_EQ(model.rowCount(), 5);
}

TEST_F(FolderContentsModelTest, AFolderThatWasMeasuredAgainMovesToThePlaceOfItsSize)
{
    scanHome();
    const QSignalSpy reset(&model, &Model::modelReset);
    const test::NodePtr remains = test::makeRoot(at("Films"));
    test::addFile(remains, "a.mov", 15'000'000);
    const MeasuredTree measured = MeasuredTree::of(remains, DevJunkRule::match, fake.files);
    store.didRemove({.removed = {}, .failures = {}}, true, {measured});
    EXPECT_EQ(names(), QStringList({"Projects", "Films", "film.mov", "X.app", "2 smaller files (< 1 MB)"}));
    EXPECT_EQ(data(1, Model::SizeTextRole).toString(), QStringLiteral("15 MB"));
    EXPECT_EQ(reset.count(), 0);
}

TEST_F(FolderContentsModelTest, RemovingTheFolderShownShowsWhatContainedIt)
{
    scanHome();
    open("Films/Sub");
    removeItem("Films/Sub", 20'000'000);
    EXPECT_EQ(names(), QStringList{"a.mov"});
}

// --- Selection

TEST_F(FolderContentsModelTest, TogglingSelectsAndDeselects)
{
    scanHome();
    model.toggle(2);
    EXPECT_EQ(state(2), Qt::Checked);
    EXPECT_EQ(store.selectedTotal(), 10'000'000);
    model.toggle(2);
    EXPECT_EQ(state(2), Qt::Unchecked);
    model.toggle(4);
    model.toggle(99);
    EXPECT_TRUE(store.selection().empty());
    EXPECT_FALSE(store.toast().has_value());
}

TEST_F(FolderContentsModelTest, SelectingNeverTakesOut)
{
    scanHome();
    model.select(2);
    model.select(2);
    model.select(4);
    EXPECT_EQ(state(2), Qt::Checked);
    EXPECT_EQ(store.selection().size(), 1u);
}

TEST_F(FolderContentsModelTest, SelectingAllLeavesOutWhatIsProtected)
{
    addFile("Documents/letter.pdf", 2'000'000);
    scanHome();
    model.selectAll();
    EXPECT_FALSE(store.isSelected(at("Documents")));
    EXPECT_TRUE(store.isSelected(at("film.mov")));
    EXPECT_EQ(store.selection().size(), 4u);
}

TEST_F(FolderContentsModelTest, WhatCannotBeSelectedSaysWhy)
{
    addFile("Documents/letter.pdf", 200'000'000);
    scanHome();
    model.toggle(0);
    EXPECT_EQ(store.toast(), "Documents can't be selected: protected location");
    store.dismissToast();
    model.select(0);
    EXPECT_EQ(store.toast(), "Documents can't be selected: protected location");
    EXPECT_TRUE(store.toastIsWarning());
    EXPECT_TRUE(store.selection().empty());
}

TEST_F(FolderContentsModelTest, ASelectionChangesOnlyTheRowsItConcerns)
{
    scanHome();
    const QSignalSpy changed(&model, &Model::dataChanged);
    const QSignalSpy reset(&model, &Model::modelReset);
    select("Projects");
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(changed[0][1].toModelIndex().row(), 1);
    deselect("Projects");
    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(reset.count(), 0);
}

TEST_F(FolderContentsModelTest, AFolderWithASelectedItemInsideIsPartlyChecked)
{
    scanHome();
    select("Films/Sub/b.mov");
    EXPECT_EQ(state(0), Qt::PartiallyChecked);
    EXPECT_EQ(state(1), Qt::Unchecked);
    EXPECT_TRUE(data(0, Model::CheckableRole).toBool());
    select("Films");
    EXPECT_EQ(state(0), Qt::Checked);
    deselect("Films");
    EXPECT_EQ(state(0), Qt::PartiallyChecked);
    deselect("Films/Sub/b.mov");
    EXPECT_EQ(state(0), Qt::Unchecked);
}

TEST_F(FolderContentsModelTest, TogglingAPartlyCheckedFolderSelectsAllOfIt)
{
    scanHome();
    select("Films/Sub/b.mov");
    model.toggle(0);
    EXPECT_EQ(state(0), Qt::Checked);
    EXPECT_EQ(store.selectedTotal(), 50'000'000);
}

TEST_F(FolderContentsModelTest, NamesThatSortBetweenAFolderAndItsContentsAreToldApart)
{
    // In byte order "-" and "." come before "/", which comes before "0".
    for (const char *name : {"a/x", "a-b", "a.b", "a0"})
        addFile(std::string("Odd/") + name, 3'000'000);
    scanHome();
    open("Odd");
    select("Odd/a/x");
    select("Odd/a0");
    EXPECT_EQ(state(rowOf("a")), Qt::PartiallyChecked);
    EXPECT_EQ(state(rowOf("a-b")), Qt::Unchecked);
    EXPECT_EQ(state(rowOf("a.b")), Qt::Unchecked);
    EXPECT_EQ(state(rowOf("a0")), Qt::Checked);
    select("Odd/a-b");
    EXPECT_EQ(state(rowOf("a")), Qt::PartiallyChecked);
    EXPECT_EQ(state(rowOf("a-b")), Qt::Checked);
}

TEST_F(FolderContentsModelTest, TheWholeDiskSeesTheSelectionToo)
{
    fake.files.addFile("/data/film.mov", 3'000'000);
    scan("/");
    ASSERT_TRUE(names().contains("data"));
    store.setSelected("/data/film.mov", 3'000'000, true);
    EXPECT_EQ(state(rowOf("data")), Qt::PartiallyChecked);
}

TEST_F(FolderContentsModelTest, InsideASelectedFolderEverythingIsCheckedAndSaysWhy)
{
    scanHome();
    select("Films");
    open("Films");
    for (int row = 0; row < model.rowCount(); ++row) {
        EXPECT_EQ(state(row), Qt::Checked);
        EXPECT_FALSE(data(row, Model::CheckableRole).toBool());
        EXPECT_EQ(data(row, Model::CheckReasonRole).toString(), QStringLiteral("Inside a selected folder"));
    }
    model.toggle(0);
    EXPECT_EQ(store.selection().size(), 1u);
    deselect("Films");
    EXPECT_EQ(state(0), Qt::Unchecked);
    EXPECT_TRUE(data(0, Model::CheckableRole).toBool());
}

TEST_F(FolderContentsModelTest, AProtectedItemCannotBeCheckedAndSaysWhy)
{
    addFile("Library/Caches/x", 90'000'000);
    scanHome();
    ASSERT_EQ(names().first(), QStringLiteral("Library"));
    EXPECT_FALSE(data(0, Model::CheckableRole).toBool());
    EXPECT_EQ(data(0, Model::CheckReasonRole).toString(), QStringLiteral("Protected location"));
    model.toggle(0);
    EXPECT_TRUE(store.selection().empty());
}

TEST_F(FolderContentsModelTest, TheSelectionSurvivesLeavingAndEnteringAFolder)
{
    scanHome();
    select("film.mov");
    open("Films");
    EXPECT_EQ(state(0), Qt::Unchecked);
    store.openParent();
    EXPECT_EQ(state(2), Qt::Checked);
}

// --- Keyboard and menu

TEST_F(FolderContentsModelTest, TheMenuIsForItemsOnly)
{
    scanHome();
    EXPECT_TRUE(model.prepareMenu(2));
    EXPECT_EQ(model.menuTarget()->node(), node("film.mov"));
    EXPECT_FALSE(model.prepareMenu(4));
    EXPECT_FALSE(model.prepareMenu(-1));
}

// --- Size

class LargeFolderTest : public test::ExplorerFixture {};

TEST_F(LargeFolderTest, AHundredThousandRowsAreRightToTheLast)
{
    constexpr int count = 100'000;
    const test::NodePtr root = test::makeRoot(home);
    const test::NodePtr big = test::makeChild(root, "Big", FileNode::Kind::directory);
    const FolderPath path = big->pathForChildren();
    for (int i = 0; i < count; ++i) {
        auto file = std::make_shared<FileNode>(path, "file" + std::to_string(i) + ".mov", FileNode::Kind::file, big);
        file->size = 2'000'000 - i;
        file->fileCount = 1;
        big->size += file->size;
        big->fileCount += 1;
        big->children.push_back(std::move(file));
    }
    root->size = big->size;
    root->fileCount = count;
    install(root);

    FolderContentsModel model{store};
    store.open(big);
    ASSERT_EQ(model.rowCount(), count);
    for (int i = 0; i < 100; ++i)
        model.toggle(i * 7);
    EXPECT_EQ(store.selection().size(), 100u);
    EXPECT_EQ(model.data(model.index(7), Model::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_EQ(model.data(model.index(8), Model::CheckStateRole).toInt(), Qt::Unchecked);
    store.didRemove({.removed = {{big->children[50'000]->path(), 1}}, .failures = {}}, false);
    EXPECT_EQ(model.rowCount(), count - 1);
}

} // namespace
} // namespace corvane
