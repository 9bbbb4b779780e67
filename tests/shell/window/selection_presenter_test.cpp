#include "shell/ui/window/selection_presenter.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

#include "shell/window/fake_store.h"

namespace corvane {
namespace {

struct SelectionWords : testing::Test {
    SelectionWords() { presenter.setStore(&fake.store); }

    FakeStore fake;
    SelectionPresenter presenter;
};

TEST_F(SelectionWords, NothingSelectedCannotBeRemoved)
{
    EXPECT_TRUE(presenter.isEmpty());
    EXPECT_FALSE(presenter.canRemove());
    presenter.moveToTrash();
    presenter.deletePermanently();
    EXPECT_FALSE(fake.store.isRemoving());
    EXPECT_EQ(presenter.countText(), "0 items selected");
}

TEST_F(SelectionWords, OneItemIsInTheSingular)
{
    fake.select("a.zip", 2'000'000);
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
    fake.select("a.zip", 2'000'000);
    fake.select("b.zip", 57'318'000'000);
    EXPECT_EQ(presenter.countText(), "2 items selected");
    EXPECT_EQ(presenter.totalText(), "57.32 GB can be reclaimed");
    EXPECT_EQ(presenter.reviewSubtitle(), "2 items · 57.32 GB");
    EXPECT_EQ(presenter.confirmTitle(), "Permanently delete 2 items?");
    EXPECT_EQ(presenter.confirmDelete(), "Delete 57.32 GB Permanently");
}

TEST_F(SelectionWords, WhatLiesInASelectedFolderCountsThroughIt)
{
    fake.select("Films", 9'000'000);
    fake.select("Films/one.mov", 5'000'000);
    EXPECT_EQ(presenter.countText(), "1 item selected");
    EXPECT_EQ(presenter.totalText(), "9 MB can be reclaimed");
}

TEST_F(SelectionWords, ClearingEmptiesTheSelection)
{
    fake.select("a.zip", 2'000'000);
    QSignalSpy changed(&presenter, &SelectionPresenter::selectionChanged);
    presenter.clear();
    EXPECT_EQ(changed.size(), 1);
    EXPECT_TRUE(presenter.isEmpty());
}

TEST_F(SelectionWords, WhileRemovingNothingElseCanBeStarted)
{
    fake.select("a.zip", 2'000'000);
    EXPECT_EQ(presenter.trashTitle(), "Move to Trash");
    QSignalSpy removing(&presenter, &SelectionPresenter::removingChanged);
    presenter.moveToTrash();
    EXPECT_EQ(removing.size(), 1);
    EXPECT_TRUE(presenter.isRemoving());
    EXPECT_FALSE(presenter.canRemove());
    EXPECT_EQ(presenter.trashTitle(), "Removing");
    presenter.clear();
    EXPECT_FALSE(presenter.isEmpty());

    fake.store.didRemove({.removed = {{"/home/studio/a.zip", 2'000'000}}, .failures = {}}, false);
    EXPECT_EQ(presenter.trashTitle(), "Move to Trash");
    EXPECT_TRUE(presenter.isEmpty());
    EXPECT_FALSE(presenter.canRemove());
}

TEST_F(SelectionWords, AFailedRemovalLeavesTheSelectionAndCanBeTriedAgain)
{
    fake.select("a.zip", 2'000'000);
    presenter.deletePermanently();
    fake.store.didRemove({.removed = {}, .failures = {{"/home/studio/a.zip", "a.zip: No such file or directory"}}},
                         true);
    EXPECT_TRUE(presenter.canRemove());
    EXPECT_EQ(presenter.countText(), "1 item selected");
}

} // namespace
} // namespace corvane
