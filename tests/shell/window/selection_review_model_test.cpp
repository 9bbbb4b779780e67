#include "shell/ui/window/selection_review_model.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "shell/store_with_films.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Review : testing::Test, StoreWithFilms {
    Review() { model.setActive(true); }

    std::vector<std::string> texts(int role) const
    {
        std::vector<std::string> all;
        for (int row = 0; row < model.rowCount(); ++row)
            all.push_back(model.index(row).data(role).toString().toStdString());
        return all;
    }
    std::vector<std::string> names() const { return texts(SelectionReviewModel::NameRole); }

    SelectionReviewModel model{store};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy resets{&model, &QAbstractItemModel::modelReset};
    QSignalSpy inserted{&model, &QAbstractItemModel::rowsInserted};
    QSignalSpy removed{&model, &QAbstractItemModel::rowsRemoved};
};

TEST_F(Review, ListsTheLargestFirstWithPathsFromTheHomeFolder)
{
    select("small.zip", 2'000'000);
    select("Movies/large.mov", 8'120'000'000);
    store.setSelected("/mnt/disk/medium.iso", 5'000'000, true);
    EXPECT_THAT(names(), ElementsAre("large.mov", "medium.iso", "small.zip"));
    EXPECT_THAT(texts(SelectionReviewModel::PathRole),
                ElementsAre("~/Movies/large.mov", "/mnt/disk/medium.iso", "~/small.zip"));
    EXPECT_THAT(texts(SelectionReviewModel::SizeRole), ElementsAre("8.12 GB", "5 MB", "2 MB"));
    EXPECT_EQ(texts(SelectionReviewModel::DropTitleRole).front(), "Remove large.mov from the selection");
}

TEST_F(Review, AFolderBesideTheHomeFolderIsNotShortened)
{
    store.setSelected("/home/studio2/a.zip", 1, true);
    EXPECT_THAT(texts(SelectionReviewModel::PathRole), ElementsAre("/home/studio2/a.zip"));
}

TEST(ReviewOfAnotherHome, AHomeThatIsTheRootOfTheDiskShortensNothing)
{
    FakeHost fake;
    fake.files.setHome("/");
    const Host host = fake.host();
    const ProtectedLocations locations{"/", ProtectedPlaces{}};
    StorageStore store{host, locations};
    SelectionReviewModel model(store);
    model.setActive(true);
    store.setSelected("/srv/big.iso", 1, true);
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(model.index(0).data(SelectionReviewModel::PathRole).toString(), QStringLiteral("/srv/big.iso"));
}

TEST_F(Review, NamesThatAreNotTextAreShownAndDropped)
{
    select("bad\xff\nname", 2'000'000);
    EXPECT_THAT(names(), ElementsAre("bad\xef\xbf\xbd\xe2\x90\x8aname"));
    model.drop(0);
    EXPECT_THAT(store.selection(), IsEmpty());
}

TEST_F(Review, EqualSizesStandByPath)
{
    select("b", 5);
    select("a", 5);
    select("c", 5);
    EXPECT_THAT(names(), ElementsAre("a", "b", "c"));
}

TEST_F(Review, DroppingAnEntryRemovesOnlyThatEntry)
{
    for (const char *name : {"a", "b", "c"})
        select(name, 5);
    inserted.clear();
    model.drop(1);
    EXPECT_THAT(names(), ElementsAre("a", "c"));
    EXPECT_EQ(removed.size(), 1);
    EXPECT_EQ(inserted.size(), 0);
    EXPECT_FALSE(store.isSelected("/home/studio/b"));
}

TEST_F(Review, DroppingAFolderBringsUpWhatItCovered)
{
    select("Films", 9'000'000);
    select("Films/one.mov", 5'000'000);
    select("Films/two.mov", 4'000'000);
    EXPECT_THAT(names(), ElementsAre("Films"));
    model.drop(0);
    EXPECT_THAT(names(), ElementsAre("one.mov", "two.mov"));
    EXPECT_EQ(store.selectedTotal(), 9'000'000);
}

TEST_F(Review, SelectingAFolderHidesWhatItCovers)
{
    select("other", 1);
    select("Films/one.mov", 5'000'000);
    select("Films/two.mov", 4'000'000);
    select("Films", 9'000'000);
    EXPECT_THAT(names(), ElementsAre("Films", "other"));
}

TEST_F(Review, AChangedSizeMovesTheEntryToItsPlace)
{
    select("a", 3);
    select("b", 2);
    select("a", 1);
    EXPECT_THAT(names(), ElementsAre("b", "a"));
    EXPECT_THAT(texts(SelectionReviewModel::SizeRole), ElementsAre("2 bytes", "1 byte"));
}

TEST_F(Review, FollowsInRunsAndNeverResets)
{
    std::vector<SelectedEntry> entries;
    for (int i = 0; i < 10; ++i)
        entries.push_back({"/home/studio/" + std::string(1, static_cast<char>('a' + i)), 100 - i});
    store.setSelected(entries, true);
    EXPECT_EQ(inserted.size(), 1);

    const std::vector<SelectedEntry> dropped{entries[2], entries[3], entries[4], entries[8]};
    store.setSelected(dropped, false);
    EXPECT_THAT(names(), ElementsAre("a", "b", "f", "g", "h", "j"));
    EXPECT_EQ(removed.size(), 2);

    inserted.clear();
    store.setSelected(dropped, true);
    EXPECT_THAT(names(), ElementsAre("a", "b", "c", "d", "e", "f", "g", "h", "i", "j"));
    EXPECT_EQ(inserted.size(), 2);

    store.clearSelection();
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_EQ(resets.size(), 0);
}

TEST_F(Review, AnnouncesItsCountWhenItChanges)
{
    QSignalSpy counts(&model, &SelectionReviewModel::countChanged);
    select("a", 3);
    EXPECT_EQ(counts.size(), 1);
    EXPECT_EQ(model.count(), 1);
    model.drop(0);
    EXPECT_EQ(counts.size(), 2);
    EXPECT_EQ(model.count(), 0);
}

TEST_F(Review, NothingIsDroppedWhileRemoving)
{
    select("a", 3);
    store.remove(store.effectiveSelection(), false);
    model.drop(0);
    EXPECT_TRUE(store.isSelected("/home/studio/a"));
}

TEST_F(Review, TenThousandEntriesComeAndGoInOneRunEach)
{
    std::vector<SelectedEntry> entries;
    for (int i = 0; i < 10'000; ++i)
        entries.push_back({"/home/studio/folder/file" + std::to_string(i), i % 100});
    store.setSelected(entries, true);
    EXPECT_EQ(model.count(), 10'000);
    EXPECT_EQ(inserted.size(), 1);
    EXPECT_EQ(model.index(0).data(SelectionReviewModel::SizeRole).toString(), "99 bytes");

    model.drop(9'999);
    model.drop(0);
    EXPECT_EQ(model.count(), 9'998);
    EXPECT_EQ(removed.size(), 2);
    store.clearSelection();
    EXPECT_EQ(removed.size(), 3);
}

} // namespace
} // namespace corvane
