#include "cleanup/cleanup_items.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Gone = std::vector<SelectedEntry>;

const CleanupDefinition &definition(std::string_view id)
{
    return *std::ranges::find(CleanupCatalog::definitions, id, &CleanupDefinition::id);
}

/// Downloads of 20 bytes to review, and safe items: caches of 9 bytes and a Trash of 2.
class CleanupItemsTest : public testing::Test {
protected:
    std::vector<std::string> ids() const
    {
        std::vector<std::string> result;
        for (const CleanupItem &item : items)
            result.emplace_back(item.def->id);
        return result;
    }

    std::vector<CleanupItem> items{
        {.def = &definition("downloads"), .entries = {{"/h/Downloads/film", 20}}},
        {.def = &definition("caches"), .entries = {{"/h/Library/Caches/app", 6}, {"/h/Library/Caches/other", 3}}},
        {.def = &definition("trash"), .entries = {{"/h/.Trash/old", 2}}}};
};

TEST_F(CleanupItemsTest, OnlySafeItemsCountAsSafe)
{
    EXPECT_EQ(safeTotal(items), 11);
    EXPECT_THAT(safeEntries(items),
                ElementsAre(SelectedEntry{"/h/Library/Caches/app", 6}, SelectedEntry{"/h/Library/Caches/other", 3},
                            SelectedEntry{"/h/.Trash/old", 2}));
    EXPECT_EQ(allEntries(items).size(), 4u);
}

TEST_F(CleanupItemsTest, WhatIsRemovedInsideAnEntryMakesItSmallerAndTheOrderFollows)
{
    EXPECT_TRUE(takeRemoved(items, Gone{{"/h/Library/Caches/app/deep", 4}, {"/h/Library/Caches/app/b", 1}}));
    EXPECT_THAT(items[1].entries,
                ElementsAre(CleanupEntry{"/h/Library/Caches/other", 3}, CleanupEntry{"/h/Library/Caches/app", 1}));
}

TEST_F(CleanupItemsTest, AnEntryThatIsRemovedOrLiesInARemovedFolderLeavesItsItem)
{
    EXPECT_TRUE(takeRemoved(items, Gone{{"/h/Downloads", 20}, {"/h/Library/Caches/app", 6}}));
    EXPECT_THAT(ids(), ElementsAre("caches", "trash", "downloads"));
    EXPECT_THAT(items.back().entries, IsEmpty());
    EXPECT_THAT(items.front().entries, ElementsAre(CleanupEntry{"/h/Library/Caches/other", 3}));
}

TEST_F(CleanupItemsTest, WhatIsRemovedElsewhereChangesNothing)
{
    const std::vector<CleanupItem> before = items;
    EXPECT_FALSE(takeRemoved(items, Gone{{"/h/Library/Caches/applause", 1}, {"/h/Library/Cache", 1}}));
    EXPECT_EQ(items, before);
}

} // namespace
} // namespace corvane
