#include "shell/ui/window/selection_presenter.h"

#include <gmock/gmock.h>

#include <QSignalSpy>
#include <QTest>

#include "shell/store_with_films.h"
#include "support/patience.h"

namespace corvane {
namespace {

struct SelectionWords : testing::Test, StoreWithFilms {
    SelectionPresenter presenter{store};
};

TEST_F(SelectionWords, NothingSelectedCannotBeRemoved)
{
    EXPECT_TRUE(presenter.isEmpty());
    EXPECT_FALSE(presenter.canRemove());
    presenter.moveToTrash();
    presenter.deletePermanently();
    EXPECT_FALSE(store.isRemoving());
    EXPECT_EQ(presenter.countText(), "0 items selected");
}

TEST_F(SelectionWords, OneItemIsInTheSingular)
{
    select("a.zip", 2'000'000);
    EXPECT_EQ(presenter.countText(), "1 item selected");
    EXPECT_EQ(presenter.totalText(), "2 MB can be reclaimed");
    EXPECT_EQ(presenter.reviewTitle(), "Selected for removal");
    EXPECT_EQ(presenter.reviewSubtitle(), "1 item · 2 MB");
    EXPECT_EQ(presenter.confirmTitle(), "Permanently delete 1 item?");
    EXPECT_EQ(presenter.confirmMessage(),
              "These items will be erased immediately and can't be recovered from the Trash.");
    EXPECT_EQ(presenter.confirmDelete(), "Delete 2 MB Permanently");
}

TEST_F(SelectionWords, SeveralItemsAreInThePlural)
{
    select("a.zip", 2'000'000);
    select("b.zip", 57'318'000'000);
    EXPECT_EQ(presenter.countText(), "2 items selected");
    EXPECT_EQ(presenter.totalText(), "57.32 GB can be reclaimed");
    EXPECT_EQ(presenter.reviewSubtitle(), "2 items · 57.32 GB");
    EXPECT_EQ(presenter.confirmTitle(), "Permanently delete 2 items?");
    EXPECT_EQ(presenter.confirmDelete(), "Delete 57.32 GB Permanently");
}

TEST_F(SelectionWords, WhatLiesInASelectedFolderCountsThroughIt)
{
    select("Films", 9'000'000);
    select("Films/one.mov", 5'000'000);
    EXPECT_EQ(presenter.countText(), "1 item selected");
    EXPECT_EQ(presenter.totalText(), "9 MB can be reclaimed");
}

TEST_F(SelectionWords, ClearingEmptiesTheSelection)
{
    select("a.zip", 2'000'000);
    QSignalSpy changed(&presenter, &SelectionPresenter::selectionChanged);
    presenter.clear();
    EXPECT_EQ(changed.size(), 1);
    EXPECT_TRUE(presenter.isEmpty());
}

TEST_F(SelectionWords, WhileRemovingNothingElseCanBeStarted)
{
    select("a.zip", 2'000'000);
    EXPECT_EQ(presenter.trashTitle(), "Move to Trash");
    QSignalSpy removing(&presenter, &SelectionPresenter::removingChanged);
    presenter.moveToTrash();
    EXPECT_EQ(removing.size(), 1);
    EXPECT_TRUE(presenter.isRemoving());
    EXPECT_FALSE(presenter.canRemove());
    EXPECT_EQ(presenter.trashTitle(), "Removing");
    presenter.clear();
    EXPECT_FALSE(presenter.isEmpty());

    store.didRemove({.removed = {{"/home/studio/a.zip", 2'000'000}}, .failures = {}}, false);
    EXPECT_EQ(presenter.trashTitle(), "Move to Trash");
    EXPECT_TRUE(presenter.isEmpty());
    EXPECT_FALSE(presenter.canRemove());
}

TEST_F(SelectionWords, AFailedRemovalLeavesTheSelectionAndCanBeTriedAgain)
{
    select("a.zip", 2'000'000);
    presenter.deletePermanently();
    presenter.confirm();
    store.didRemove({.removed = {}, .failures = {{"/home/studio/a.zip", "a.zip: Permission denied"}}}, true);
    EXPECT_TRUE(presenter.canRemove());
    EXPECT_EQ(presenter.countText(), "1 item selected");
}

TEST_F(SelectionWords, ItemsInTheTrashAreMentionedAndDeletedOnlyAfterAQuestion)
{
    fake.files.addFile("/home/studio/.Trash/old.mov", 3'000'000);
    fake.files.addFile("/home/studio/.Trash/older.mov", 1'000'000);
    fake.trash.setTrashFolders({"/home/studio/.Trash"});
    select("Movies/one.mov", 5'000'000);
    EXPECT_EQ(presenter.trashNote(), "");
    select(".Trash/old.mov", 3'000'000);
    EXPECT_EQ(presenter.trashNote(), "1 of them is in the Trash and will be deleted permanently");
    select(".Trash/older.mov", 1'000'000);
    EXPECT_EQ(presenter.trashNote(), "2 of them are in the Trash and will be deleted permanently");

    QSignalSpy questions(&presenter, &SelectionPresenter::questionWanted);
    presenter.moveToTrash();
    EXPECT_EQ(questions.size(), 1);
    EXPECT_FALSE(store.isRemoving()) << "nothing happens before the answer";
    EXPECT_EQ(presenter.confirmTitle(), "Permanently delete 2 items?");
    EXPECT_EQ(presenter.confirmNames(), "“old.mov” and “older.mov”");
    EXPECT_EQ(presenter.confirmDelete(), "Delete 4 MB Permanently");
    presenter.confirm();
    EXPECT_TRUE(store.isRemoving());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.isRemoving(); }, patience));
    EXPECT_EQ(*store.toast(), "Moved 3 items (9 MB) to Trash — empty it to free the space");
    EXPECT_EQ(fake.trash.trashed(), std::vector<std::string>{"/home/studio/Movies/one.mov"});
}

TEST_F(SelectionWords, TheQuestionNamesTheOneItemOrTheFirstFew)
{
    QSignalSpy questions(&presenter, &SelectionPresenter::questionWanted);
    select("a.zip", 5'000'000);
    presenter.deletePermanently();
    EXPECT_EQ(questions.size(), 1);
    EXPECT_FALSE(store.isRemoving());
    EXPECT_EQ(presenter.confirmNames(), "“a.zip”");
    select("b.zip", 4'000'000);
    select("c.zip", 3'000'000);
    EXPECT_EQ(presenter.confirmNames(), "“a.zip”, “b.zip” and “c.zip”");
    select("d.zip", 2'000'000);
    select("e.zip", 1'000'000);
    EXPECT_EQ(presenter.confirmNames(), "“a.zip”, “b.zip”, “c.zip” and 2 more");
}

TEST_F(SelectionWords, CountsAreGroupedInThousands)
{
    for (int i = 0; i < 1'234; ++i)
        select(std::to_string(i) + ".zip", 1'000);
    EXPECT_EQ(presenter.countText(), "1,234 items selected");
    EXPECT_EQ(presenter.reviewSubtitle(), "1,234 items · 1.2 MB");
    presenter.deletePermanently();
    EXPECT_EQ(presenter.confirmTitle(), "Permanently delete 1,234 items?");
    EXPECT_TRUE(presenter.confirmNames().endsWith(" and 1,231 more")) << qPrintable(presenter.confirmNames());
}

TEST_F(SelectionWords, IfEverythingLiesInTheTrashTheNoteHasNoCount)
{
    fake.trash.setTrashFolders({"/home/studio/.Trash"});
    select(".Trash/old.mov", 3'000'000);
    EXPECT_EQ(presenter.trashNote(), "It is in the Trash and will be deleted permanently");
    select(".Trash/older.mov", 1'000'000);
    EXPECT_EQ(presenter.trashNote(), "All of them are in the Trash and will be deleted permanently");
}

TEST_F(SelectionWords, CountInTheTrashIsGroupedInThousands)
{
    fake.trash.setTrashFolders({"/home/studio/.Trash"});
    select("Movies/one.mov", 5'000'000);
    for (int i = 0; i < 1'234; ++i)
        select(".Trash/" + std::to_string(i), 1'000);
    EXPECT_EQ(presenter.trashNote(), "1,234 of them are in the Trash and will be deleted permanently");
}

TEST_F(SelectionWords, ARemovalCanBeStoppedOnce)
{
    EXPECT_FALSE(presenter.canStop());
    select("a.zip", 2'000'000);
    presenter.moveToTrash();
    EXPECT_TRUE(presenter.canStop());
    EXPECT_EQ(presenter.stopTitle(), "Stop");
    presenter.stop();
    EXPECT_FALSE(presenter.canStop());
    EXPECT_EQ(presenter.stopTitle(), "Stopping");
}

} // namespace
} // namespace corvane
