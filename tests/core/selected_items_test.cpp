#include "core/selected_items.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cleanup/dev_junk_rule.h"
#include "platform/fake_host.h"
#include "support/tree.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Entries = std::vector<SelectedEntry>;
using Left = RemovalFailure::Left;

class SelectedItemsTest : public testing::Test {
protected:
    SelectedItemsTest()
    {
        fake.files.addFile("/Users/me/films/a", 3);
        fake.files.addFile("/Users/me/films/b", 2);
        fake.files.addFile("/Users/me/notes", 1);
    }

    bool add(const Entries &entries) { return items.add(entries, noTree); }
    SelectedItems::Settlement settle(std::vector<RemovalFailure> failures, Entries removed = {})
    {
        return items.settle({.removed = std::move(removed), .failures = std::move(failures)});
    }

    FakeHost fake;
    const ProtectedLocations locations{"/Users/me", {}};
    const InstalledTree noTree;
    SelectedItems items{fake.host(), locations};
};

TEST_F(SelectedItemsTest, WhatIsAddedIsRememberedAsItWasAtThatMoment)
{
    EXPECT_TRUE(add({{"/Users/me/notes", 1}, {"/Users/me/gone", 1}}));
    ASSERT_TRUE(items.seen().contains("/Users/me/notes"));
    EXPECT_EQ(items.seen().at("/Users/me/notes").identity, fake.files.facts("/Users/me/notes")->identity);
    EXPECT_FALSE(items.seen().at("/Users/me/gone").identity.isKnown());

    const ItemIdentity before = items.seen().at("/Users/me/notes").identity;
    fake.files.take("/Users/me/notes");
    fake.files.addFile("/Users/me/notes", 9);
    EXPECT_TRUE(add({{"/Users/me/notes", 9}})) << "the size is another one";
    EXPECT_EQ(items.seen().at("/Users/me/notes").identity, before) << "it was selected already";
    EXPECT_FALSE(add({{"/Users/me/notes", 9}}));
}

TEST_F(SelectedItemsTest, NothingProtectedGetsIn)
{
    EXPECT_FALSE(add({{"/usr/lib", 5}, {"/Users/me/Documents", 5}}));
    EXPECT_THAT(items.sizes(), IsEmpty());
    EXPECT_THAT(items.seen(), IsEmpty());
}

TEST_F(SelectedItemsTest, WhatTheTreeShowsAsAFileIsSelectedAsAFile)
{
    const test::NodePtr root = test::makeRoot("/Users/me");
    test::addFile(root, "films", 5);
    const InstalledTree tree(root, ScanSummary::make(root, DevJunkRule::match, fake.files), {}, {});
    items.add(Entries{{"/Users/me/films", 5}}, tree);
    ItemIdentity expected = fake.files.facts("/Users/me/films")->identity;
    ASSERT_EQ(expected.type, EntryType::directory);
    expected.type = EntryType::file;
    EXPECT_EQ(items.seen().at("/Users/me/films").identity, expected);
}

TEST_F(SelectedItemsTest, WhatIsRemovedOrClearedIsForgottenAltogether)
{
    add({{"/Users/me/notes", 1}, {"/Users/me/films", 5}});
    EXPECT_FALSE(items.remove(Entries{{"/Users/me/other", 1}}));
    EXPECT_TRUE(items.remove(Entries{{"/Users/me/notes", 1}}));
    EXPECT_EQ(items.sizes(), (Selection{{"/Users/me/films", 5}}));
    EXPECT_FALSE(items.seen().contains("/Users/me/notes"));
    EXPECT_TRUE(items.clear());
    EXPECT_THAT(items.sizes(), IsEmpty());
    EXPECT_THAT(items.seen(), IsEmpty());
    EXPECT_FALSE(items.clear());
}

TEST_F(SelectedItemsTest, OnlyWhatIsSelectedTakesANewSize)
{
    add({{"/Users/me/notes", 1}});
    EXPECT_TRUE(items.resize(Entries{{"/Users/me/notes", 4}, {"/Users/me/films", 5}}));
    EXPECT_EQ(items.sizes(), (Selection{{"/Users/me/notes", 4}}));
    EXPECT_FALSE(items.resize(Entries{{"/Users/me/notes", 4}}));

    const test::NodePtr root = test::makeRoot("/Users/me");
    test::addFile(root, "notes", 7);
    const InstalledTree tree(root, ScanSummary::make(root, DevJunkRule::match, fake.files), {}, {});
    EXPECT_TRUE(items.resizeFrom(tree));
    EXPECT_EQ(items.sizes(), (Selection{{"/Users/me/notes", 7}}));
    EXPECT_FALSE(items.resizeFrom(tree));
    EXPECT_FALSE(items.resizeFrom(noTree)) << "what no tree shows keeps its size";
}

TEST_F(SelectedItemsTest, WhatLiesInTheTrashCountsOnceThroughItsFolder)
{
    fake.files.addFile("/Users/me/.Trash/old/inner", 2);
    add({{"/Users/me/.Trash/old", 2}, {"/Users/me/.Trash/old/inner", 2}, {"/Users/me/notes", 1}});
    EXPECT_THAT(items.inTrash(), ElementsAre(SelectedEntry{"/Users/me/.Trash/old", 2}));
}

TEST_F(SelectedItemsTest, WhatWasRemovedIsForgottenWithWhatWasSelectedInsideIt)
{
    add({{"/Users/me/films", 5}, {"/Users/me/films/a", 3}, {"/Users/me/films 2", 1}});
    const auto settled = settle({}, {{"/Users/me/films", 5}});
    EXPECT_TRUE(settled.hasChanged);
    EXPECT_THAT(settled.gone, ElementsAre(SelectedEntry{"/Users/me/films", 5}));
    EXPECT_EQ(items.sizes(), (Selection{{"/Users/me/films 2", 1}}));
    EXPECT_FALSE(items.seen().contains("/Users/me/films/a"));
}

TEST_F(SelectedItemsTest, WhatARemovalHasLeftDecidesWhatStaysSelected)
{
    add({{"/Users/me/films", 5}, {"/Users/me/films/a", 3}, {"/Users/me/notes", 1}, {"/Users/me/x", 4}});
    const ItemIdentity films = items.seen().at("/Users/me/films").identity;

    EXPECT_FALSE(settle({{.path = "/Users/me/notes", .line = "", .left = Left::asItWas}}).hasChanged);
    EXPECT_TRUE(items.sizes().contains("/Users/me/notes"));

    EXPECT_TRUE(settle({{.path = "/Users/me/notes", .line = "", .left = Left::somethingElse}}).hasChanged);
    EXPECT_FALSE(items.sizes().contains("/Users/me/notes"));

    const auto missing = settle({{.path = "/Users/me/x", .line = "", .left = Left::nothing}});
    EXPECT_TRUE(missing.hasChanged);
    EXPECT_THAT(missing.gone, ElementsAre(SelectedEntry{"/Users/me/x", 4})) << "it was gone before";

    const auto part = settle({{.path = "/Users/me/films", .line = "", .left = Left::aPart, .freed = 2}});
    EXPECT_TRUE(part.hasChanged);
    EXPECT_THAT(part.gone, IsEmpty());
    EXPECT_EQ(items.sizes(), (Selection{{"/Users/me/films", 3}})) << "to be tried again";
    EXPECT_EQ(items.seen().at("/Users/me/films").identity, films);
}

TEST_F(SelectedItemsTest, APartOfWhatIsNotSelectedStaysUnselected)
{
    EXPECT_FALSE(settle({{.path = "/Users/me/films", .line = "", .left = Left::aPart, .freed = 2}}).hasChanged);
    EXPECT_THAT(items.sizes(), IsEmpty());
}

} // namespace
} // namespace corvane
