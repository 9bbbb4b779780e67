#include <gtest/gtest.h>

#include "core/removal_fixture.h"

namespace corvane {
namespace {

TEST(RemovalPlan, HasOneStepForEachEntryInTheOrderOfTheirPaths)
{
    const auto steps = planFor({{"/srv/b", 2}, {"/srv/a", 1}, {"/usr/x", 3}}, false);
    const std::vector<RemovalStep> expected{
        {"/srv/a", 1, Action::trash}, {"/srv/b", 2, Action::trash}, {"/usr/x", 3, Action::refuse}};
    EXPECT_EQ(steps, expected);
}

TEST(RemovalPlan, PermanentRemovalErases)
{
    EXPECT_EQ(actions(planFor({{"/srv/a", 1}}, true)), std::vector{Action::erase});
}

TEST(RemovalPlan, ProtectedEntryIsRefusedEvenPermanently)
{
    EXPECT_EQ(actions(planFor({{"/Users/me/Documents", 1}}, false)), std::vector{Action::refuse});
    EXPECT_EQ(actions(planFor({{"/Users/me/Documents", 1}}, true)), std::vector{Action::refuse});
    EXPECT_EQ(actions(planFor({{"/Users/me/.Trash", 1}}, true)), std::vector{Action::refuse});
}

TEST(RemovalPlan, EntryInTheTrashIsErased)
{
    EXPECT_EQ(actions(planFor({{"/Users/me/.Trash/a", 1}}, false)), std::vector{Action::erase});
    EXPECT_EQ(actions(planFor({{"/Users/me/.Trash/a/b", 1}}, false)), std::vector{Action::erase});
    EXPECT_EQ(actions(planFor({{"/srv/trash/a", 1}}, false, {"/srv/trash"})), std::vector{Action::erase});
}

TEST(RemovalPlan, EntryWhoseNameOnlyBeginsLikeTheTrashIsTrashed)
{
    EXPECT_EQ(actions(planFor({{"/Users/me/.Trash2/a", 1}}, false)), std::vector{Action::trash});
    EXPECT_EQ(actions(planFor({{"/srv/trash", 1}}, false, {"/srv/trash"})), std::vector{Action::trash});
    EXPECT_EQ(actions(planFor({{"/Users/other/.Trash/a", 1}}, false)), std::vector{Action::trash});
}

TEST(RemovalPlan, PathThatIsNotAbsoluteIsRefused)
{
    for (const char *path : {"", "a", "~/a", "./a"})
        EXPECT_EQ(actions(planFor({{path, 1}}, true)), std::vector{Action::refuse}) << path;
}

TEST(RemovalPlan, PathThatIsNotStandardizedIsRefused)
{
    for (const char *path : {"/srv/x/", "/srv/x/.", "/srv/./x", "/srv//x", "//srv/x", "/srv/link/../x",
                             "/Users/me/.Trash/../a", "/Users/me/.Trash/."}) {
        for (const bool permanently : {false, true})
            EXPECT_EQ(actions(planFor({{path, 1}}, permanently)), std::vector{Action::refuse}) << path;
    }
}

TEST(RemovalPlan, TrashFolderWithNeedlessSlashesIsTheSame)
{
    for (const char *folder : {"/srv/trash/", "/srv/trash//", "//srv/./trash"})
        EXPECT_EQ(actions(planFor({{"/srv/trash/a", 1}}, false, {folder})), std::vector{Action::erase}) << folder;
}

TEST(RemovalPlan, OfNothingIsEmpty)
{
    EXPECT_TRUE(planFor({}, false).empty());
}

TEST_F(RemovalOf, AnItemThatIsSeenInTheTrashIsErasedAlsoWhereALinkLeadsThere)
{
    fake.files.addFile("/Users/me/.Trash/a", 5);
    fake.files.addFile("/Users/me/b", 5);
    fake.files.addLink("/srv/way", "/Users/me/.Trash");
    const Selection entries{{"/Users/me/.Trash/a", 5}, {"/Users/me/b", 5}, {"/srv/way/a", 5}};
    const SeenItems seen = Removal::look(selectedEntries(entries), locations(), fake.host());
    EXPECT_TRUE(seen.at("/Users/me/.Trash/a").isInTrash);
    EXPECT_FALSE(seen.at("/Users/me/b").isInTrash);
    EXPECT_TRUE(seen.at("/srv/way/a").isInTrash);
    EXPECT_EQ(actions(Removal::plan(entries, false, locations(), {}, seen)),
              (std::vector{Action::erase, Action::trash, Action::erase}));
}

} // namespace
} // namespace corvane
