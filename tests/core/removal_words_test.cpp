#include <gtest/gtest.h>

#include "core/removal_words.h"

namespace corvane {

namespace {

TEST(RemovalWords, TheOneItemInTheTrashIsIt)
{
    EXPECT_EQ(inTrashText(1, 1), "It is in the Trash and will be deleted permanently");
}

TEST(RemovalWords, SeveralItemsThatAreAllInTheTrashAreNotCounted)
{
    EXPECT_EQ(inTrashText(2, 2), "All of them are in the Trash and will be deleted permanently");
    EXPECT_EQ(inTrashText(1'234, 1'234), "All of them are in the Trash and will be deleted permanently");
}

TEST(RemovalWords, SomeItemsInTheTrashAreCountedInGroupsOfThreeDigits)
{
    EXPECT_EQ(inTrashText(1, 2), "1 of them is in the Trash and will be deleted permanently");
    EXPECT_EQ(inTrashText(2, 3), "2 of them are in the Trash and will be deleted permanently");
    EXPECT_EQ(inTrashText(1'234, 1'235), "1,234 of them are in the Trash and will be deleted permanently");
}

TEST(RemovalWords, NothingInTheTrashIsNotMentioned)
{
    EXPECT_EQ(inTrashText(0, 0), "");
    EXPECT_EQ(inTrashText(0, 3), "");
}

TEST(RemovalWords, APermanentDeletionIsAskedAboutByCountAndSize)
{
    EXPECT_EQ(deletionQuestion(1), "Permanently delete 1 item?");
    EXPECT_EQ(deletionQuestion(1'234), "Permanently delete 1,234 items?");
    EXPECT_EQ(deletionAnswer(2'500'000), "Delete 2.5 MB Permanently");
}

} // namespace

} // namespace corvane
