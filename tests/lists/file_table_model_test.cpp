#include "lists/ui/file_table_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "lists/lists_fixture.h"
#include "lists/ui/large_files_presenter.h"

namespace corvane {
namespace {

using Model = FileTableModel;

/// The rows of "Large Files": new.mov, Interview.mov, rushes.zip, Old.zip, undated.pdf.
class FileTableModelTest : public test::ListsFixture {
protected:
    void show()
    {
        addMany();
        scanHome();
    }
    [[nodiscard]] QVariant data(int row, int role) { return ListsFixture::data(model, row, role); }
    [[nodiscard]] Qt::CheckState check(int row) { return data(row, Model::CheckStateRole).value<Qt::CheckState>(); }
    [[nodiscard]] QStringList highlighted() { return ListsFixture::highlighted(model); }
    [[nodiscard]] QStringList selected() const
    {
        QStringList names;
        for (const auto &[path, size] : store.selection())
            names << QString::fromStdString(path.substr(path.rfind('/') + 1));
        return names;
    }

    LargeFilesPresenter presenter{store};
    Model &model = *presenter.files();
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(FileTableModelTest, ARowSaysWhatItsColumnsHold)
{
    show();
    EXPECT_EQ(data(1, Model::NameRole), QStringLiteral("Interview.mov"));
    EXPECT_EQ(data(1, Model::SizeTextRole), QStringLiteral("800 MB"));
    EXPECT_EQ(data(1, Model::KindRole), QStringLiteral("Videos"));
    EXPECT_TRUE(data(1, Model::ModifiedRole).toString().contains(QStringLiteral("2024")));
    EXPECT_EQ(data(1, Model::LocationRole), QStringLiteral("~/Movies"));
    EXPECT_EQ(data(1, Model::ElideRole), static_cast<int>(Qt::ElideMiddle));
    EXPECT_TRUE(
        data(1, Model::DescriptionRole).toString().startsWith(QStringLiteral("Interview.mov, 800 MB, Videos, ")));
    EXPECT_TRUE(data(1, Model::DescriptionRole).toString().endsWith(QStringLiteral(", ~/Movies")));
}

TEST_F(FileTableModelTest, AnUnknownDateIsADash)
{
    show();
    EXPECT_EQ(data(4, Model::NameRole), QStringLiteral("undated.pdf"));
    EXPECT_EQ(data(4, Model::ModifiedRole), QStringLiteral("–"));
    EXPECT_EQ(data(4, Model::DescriptionRole), QStringLiteral("undated.pdf, 500 MB, Documents, ~/Documents"));
}

TEST_F(FileTableModelTest, EveryColumnSortsBothWays)
{
    show();
    EXPECT_EQ(model.sortColumn(), static_cast<int>(FileColumn::size));
    EXPECT_TRUE(model.sortDescending());
    const auto sortBy = [&](FileColumn column) {
        model.sortBy(static_cast<int>(column));
        return names(model);
    };
    EXPECT_EQ(sortBy(FileColumn::size).first(), QStringLiteral("undated.pdf"));
    EXPECT_FALSE(model.sortDescending());
    EXPECT_EQ(sortBy(FileColumn::name),
              QStringList({"Interview.mov", "new.mov", "Old.zip", "rushes.zip", "undated.pdf"}));
    EXPECT_EQ(sortBy(FileColumn::name).first(), QStringLiteral("undated.pdf"));
    EXPECT_EQ(sortBy(FileColumn::kind).first(), QStringLiteral("rushes.zip"));
    EXPECT_EQ(sortBy(FileColumn::kind).first(), QStringLiteral("new.mov"));
    EXPECT_EQ(sortBy(FileColumn::modified).last(), QStringLiteral("new.mov"));
    EXPECT_EQ(sortBy(FileColumn::modified).first(), QStringLiteral("new.mov"));
    EXPECT_EQ(sortBy(FileColumn::location).first(), QStringLiteral("undated.pdf"));
    EXPECT_EQ(sortBy(FileColumn::location).first(), QStringLiteral("new.mov"));
    EXPECT_EQ(sortBy(FileColumn::size).first(), QStringLiteral("new.mov")) << "the largest are asked for first";
}

TEST_F(FileTableModelTest, APressHighlightsOneRowCtrlAddsAndShiftReaches)
{
    show();
    model.press(1, Qt::NoModifier, false);
    EXPECT_EQ(highlighted(), QStringList({"Interview.mov"}));
    model.press(3, Qt::ShiftModifier, false);
    EXPECT_EQ(highlighted(), QStringList({"Interview.mov", "rushes.zip", "Old.zip"}));
    model.press(0, Qt::ShiftModifier, false);
    EXPECT_EQ(highlighted(), QStringList({"new.mov", "Interview.mov"})) << "from where the first press was";
    model.press(4, Qt::ControlModifier, false);
    EXPECT_EQ(highlighted(), QStringList({"new.mov", "Interview.mov", "undated.pdf"}));
    model.press(0, Qt::ControlModifier, false);
    EXPECT_EQ(highlighted(), QStringList({"Interview.mov", "undated.pdf"}));
    model.press(2, Qt::NoModifier, false);
    EXPECT_EQ(highlighted(), QStringList({"rushes.zip"}));
    model.press(17, Qt::NoModifier, false);
    EXPECT_EQ(model.highlightedCount(), 1) << "there is no such row";
}

TEST_F(FileTableModelTest, AHighlightIsOfFilesAndSurvivesASort)
{
    show();
    model.press(0, Qt::NoModifier, false);
    model.press(2, Qt::ControlModifier, false);
    model.sortBy(static_cast<int>(FileColumn::name));
    EXPECT_EQ(highlighted(), QStringList({"new.mov", "rushes.zip"}));
    presenter.setTypeIndex(1);
    EXPECT_EQ(highlighted(), QStringList({"new.mov"}));
    presenter.setTypeIndex(0);
    EXPECT_EQ(highlighted(), QStringList({"new.mov"})) << "what was not listed is forgotten";
}

TEST_F(FileTableModelTest, SeveralHighlightedRowsAreSelectedAndDeselectedTogether)
{
    show();
    model.highlightAll();
    ASSERT_TRUE(model.prepareMenu(2));
    EXPECT_EQ(model.highlightedCount(), 5);
    EXPECT_EQ(model.severalText(), QStringLiteral("Select 5 for Removal"));
    store.setSelected(at("Movies/new.mov"), 900 * megabyte, true);
    EXPECT_EQ(model.severalText(), QStringLiteral("Select 5 for Removal")) << "not all of them are selected";
    model.toggleHighlighted();
    EXPECT_EQ(store.selection().size(), 5U);
    EXPECT_EQ(model.severalText(), QStringLiteral("Deselect 5"));
    model.toggleHighlighted();
    EXPECT_TRUE(store.selection().empty());
}

TEST_F(FileTableModelTest, AMenuOutsideTheHighlightIsOfThatRowAlone)
{
    show();
    model.press(0, Qt::NoModifier, false);
    model.press(1, Qt::ShiftModifier, false);
    model.press(1, Qt::NoModifier, true);
    EXPECT_EQ(model.highlightedCount(), 2) << "the right button keeps them";
    model.press(3, Qt::NoModifier, true);
    ASSERT_TRUE(model.prepareMenu(3));
    EXPECT_EQ(highlighted(), QStringList({"Old.zip"}));
    EXPECT_EQ(model.menuTarget()->title(), QStringLiteral("Old.zip"));
    model.menuTarget()->toggleSelection();
    EXPECT_EQ(selected(), QStringList({"Old.zip"}));
    EXPECT_FALSE(model.prepareMenu(-1));
}

TEST_F(FileTableModelTest, SpaceAndDeleteActOnAllHighlightedRowsOrOnTheOne)
{
    show();
    model.highlight(3);
    model.toggle(3);
    EXPECT_EQ(selected(), QStringList({"Old.zip"}));
    model.highlight(0);
    model.extendTo(1);
    model.select(1);
    EXPECT_EQ(store.selection().size(), 3U);
    model.select(1);
    EXPECT_EQ(store.selection().size(), 3U);
    model.toggle(0);
    EXPECT_EQ(selected(), QStringList({"Old.zip"}));
    model.toggleOne(0);
    EXPECT_EQ(store.selection().size(), 2U) << "a check box is that of its own row";
}

TEST_F(FileTableModelTest, ChecksFollowTheSelection)
{
    addFile("Clips/clip.mov", 400 * megabyte);
    show();
    const QSignalSpy changed(&model, &Model::dataChanged);
    EXPECT_EQ(check(0), Qt::Unchecked);
    EXPECT_TRUE(data(0, Model::CheckableRole).toBool());
    store.setSelected(at("Movies/new.mov"), 900 * megabyte, true);
    EXPECT_EQ(check(0), Qt::Checked);
    EXPECT_EQ(changed.count(), 1);
    store.setSelected(at("Clips"), 400 * megabyte, true);
    EXPECT_EQ(check(5), Qt::Checked);
    EXPECT_FALSE(data(5, Model::CheckableRole).toBool());
    EXPECT_EQ(data(5, Model::CheckReasonRole).toString(), QStringLiteral("Inside a selected folder"));
}

TEST_F(FileTableModelTest, AFileThatIsRemovedTakesItsRowAndItsHighlightAlong)
{
    show();
    model.highlightAll();
    const QSignalSpy removed(&model, &Model::rowsRemoved);
    const QSignalSpy reset(&model, &Model::modelReset);
    removeItem("Downloads/rushes.zip", 700 * megabyte);
    EXPECT_EQ(removed.count(), 1);
    EXPECT_EQ(reset.count(), 0) << "the others stay where they are";
    EXPECT_EQ(highlighted(), QStringList({"new.mov", "Interview.mov", "Old.zip", "undated.pdf"}));
}

TEST_F(FileTableModelTest, AnotherFilterResetsTheListAndARemovalDoesNot)
{
    show();
    const QSignalSpy anew(&model, &Model::startedAnew);
    removeItem("Downloads/rushes.zip", 700 * megabyte);
    EXPECT_EQ(anew.count(), 0);
    presenter.setQuery(QStringLiteral("o"));
    EXPECT_EQ(anew.count(), 1);
}

TEST_F(FileTableModelTest, OpenShowsAFileInItsProgramAndAPackageInTheMap)
{
    addFile("Pictures/Library.photoslibrary/a", 1'500 * megabyte);
    show();
    ASSERT_EQ(names(model).first(), QStringLiteral("Library.photoslibrary"));
    model.open(1);
    EXPECT_THAT(fake.log->lines(), testing::Contains("openUrl file://" + at("Movies/new.mov")));
    model.open(0);
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::explorer);
}

} // namespace
} // namespace corvane
