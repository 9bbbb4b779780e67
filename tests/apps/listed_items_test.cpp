#include "apps/listed_items.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/fake_host.h"

namespace corvane {
namespace {

using Entries = std::vector<SelectedEntry>;

Leftover item(const std::string &path, std::int64_t size, Leftover::Match match = Leftover::Match::exact,
              FileNode::Kind kind = FileNode::Kind::directory)
{
    return {.path = path, .kind = kind, .size = size, .location = "Caches", .match = match, .modified = {}};
}

InstalledApp app(const std::string &name, std::int64_t size, std::vector<Leftover> leftovers = {})
{
    InstalledApp app;
    app.path = "/Applications/" + name + ".app";
    app.name = name;
    app.bundleID = "org." + name;
    app.appSize = size;
    app.leftovers = std::move(leftovers);
    return app;
}

AppInventory::Result inventory()
{
    return {.apps = {app("big", 5'000, {item("/l/big", 3'000), item("/l/big.plist", 0)}), app("mid", 7'000),
                     app("small", 1'000, {item("/l/small", 9'000, Leftover::Match::name)})},
            .orphanGroups = {{.id = "org.one",
                              .items = {item("/o/one", 600, Leftover::Match::orphan),
                                        item("/o/one.old", 100, Leftover::Match::orphan)}},
                             {.id = "org.two", .items = {item("/o/two", 500, Leftover::Match::orphan)}}}};
}

std::vector<std::string> names(const AppInventory::Result &inventory)
{
    std::vector<std::string> names;
    for (const InstalledApp &each : inventory.apps)
        names.push_back(each.name);
    return names;
}

TEST(ListedItems, ARemovedApplicationLeavesTheList)
{
    AppInventory::Result result = inventory();
    EXPECT_TRUE(takeRemoved(result, Entries{{"/Applications/big.app", 5'000}}));
    EXPECT_EQ(names(result), (std::vector<std::string>{"mid", "small"}));
}

TEST(ListedItems, AFolderThatIsRemovedTakesWhatLiesInside)
{
    AppInventory::Result result = inventory();
    EXPECT_TRUE(takeRemoved(result, Entries{{"/Applications", 20'000}, {"/o", 1'200}}));
    EXPECT_TRUE(result.apps.empty());
    EXPECT_TRUE(result.orphanGroups.empty());
}

TEST(ListedItems, ARemovedLeftoverTakesItsSizeAndTheOrderFollows)
{
    AppInventory::Result result = inventory();
    EXPECT_TRUE(takeRemoved(result, Entries{{"/l/big", 3'000}}));
    EXPECT_EQ(names(result), (std::vector<std::string>{"mid", "big", "small"}));
    ASSERT_EQ(result.apps[1].leftovers.size(), 1u) << "one of 0 bytes is still there";
    EXPECT_EQ(result.apps[1].exactLeftoverSize(), 0);
}

TEST(ListedItems, WhatIsRemovedInsideMakesTheItemsSmaller)
{
    AppInventory::Result result = inventory();
    EXPECT_TRUE(takeRemoved(
        result,
        Entries{{"/Applications/mid.app/Contents/Resources", 6'500}, {"/l/big/entry", 2'900}, {"/o/one/old", 550}}));
    EXPECT_EQ(names(result), (std::vector<std::string>{"big", "small", "mid"}));
    EXPECT_EQ(result.apps[0].exactLeftoverSize(), 100);
    EXPECT_EQ(result.apps[2].appSize, 500);
    EXPECT_EQ(result.orphanGroups.front().id, "org.two");
    EXPECT_EQ(result.orphanGroups.back().items.front().path, "/o/one.old") << "the larger one now";
}

TEST(ListedItems, AGroupWithoutItemsIsNone)
{
    AppInventory::Result result = inventory();
    EXPECT_TRUE(takeRemoved(result, Entries{{"/o/one", 600}, {"/o/one.old", 100}}));
    ASSERT_EQ(result.orphanGroups.size(), 1u);
    EXPECT_EQ(result.orphanGroups.front().id, "org.two");
}

TEST(ListedItems, WhatIsRemovedElsewhereChangesNothing)
{
    AppInventory::Result result = inventory();
    EXPECT_FALSE(takeRemoved(result, Entries{{"/l/bigger", 3'000}, {"/Applications/mid.app2", 1}}));
    EXPECT_EQ(result.apps, inventory().apps);
    EXPECT_EQ(result.orphanGroups, inventory().orphanGroups);
}

TEST(ListedItems, OrphansAreEntriesOfTheSelection)
{
    const AppInventory::Result result = inventory();
    EXPECT_EQ(orphanEntries(result.orphanGroups), (Entries{{"/o/one", 600}, {"/o/one.old", 100}, {"/o/two", 500}}));
    EXPECT_EQ(orphanTotal(result.orphanGroups), 1'200);
    EXPECT_EQ(orphanTotal({}), 0);
}

TEST(ListedItems, AnUninstallRemovesTheBundleAndTheLeftoversThatWereChosen)
{
    const std::vector<Leftover> chosen{item("/l/a", 3), item("/l/b", 4), item("/l/a", 5)};
    EXPECT_EQ(uninstallEntries(app("big", 5'000), chosen),
              (Selection{{"/Applications/big.app", 5'000}, {"/l/a", 5}, {"/l/b", 4}}))
        << "the later of two sizes counts";
    EXPECT_EQ(uninstallEntries(app("big", 5'000), {}), (Selection{{"/Applications/big.app", 5'000}}));
}

TEST(ListedItems, OfAnApplicationThatACommandRemovesTheChosenDataAloneGoes)
{
    InstalledApp packed = app("packed", 5'000);
    packed.removeCommand = "sudo apt remove packed";
    packed.launcher = "/home/u/packed.desktop";
    EXPECT_EQ(uninstallEntries(packed, std::vector<Leftover>{item("/l/a", 3)}), (Selection{{"/l/a", 3}}));
    EXPECT_TRUE(uninstallEntries(packed, {}).empty());
}

TEST(ListedItems, TheFileThatStartsAnApplicationOfTheHomeGoesWithIt)
{
    InstalledApp unpacked = app("unpacked", 5'000);
    unpacked.launcher = "/home/u/unpacked.desktop";
    EXPECT_EQ(uninstallEntries(unpacked, {}),
              (Selection{{"/Applications/unpacked.app", 5'000}, {"/home/u/unpacked.desktop", 0}}));
}

TEST(ListedItems, ALeftoverOfAnotherKindThanTheListedOneIsNotKnown)
{
    FakeHost fake;
    fake.files.addFile("/Applications/big.app/Contents/MacOS/big", 5'000);
    fake.files.addFile("/l/folder/file", 1);
    fake.files.addFile("/l/file", 1);
    fake.files.addFolder("/l/grown");
    fake.files.addFile("/l/shrunk", 1);
    fake.files.addLink("/l/link", "/l/folder");
    constexpr auto file = FileNode::Kind::file;
    const std::vector<Leftover> leftovers{item("/l/folder", 1), item("/l/file", 1, Leftover::Match::exact, file),
                                          item("/l/grown", 1, Leftover::Match::exact, file), item("/l/shrunk", 1),
                                          item("/l/link", 1, Leftover::Match::exact, file)};
    const ProtectedLocations locations("/Users/u", ProtectedPlaces{});
    const SeenItems seen = lookAtUninstall(app("big", 5'000), leftovers, locations, fake.host());
    EXPECT_EQ(seen.size(), 6u);
    for (const char *path : {"/Applications/big.app", "/l/folder", "/l/file", "/l/link"})
        EXPECT_TRUE(seen.at(path).identity.isKnown()) << path;
    for (const char *path : {"/l/grown", "/l/shrunk"})
        EXPECT_FALSE(seen.at(path).identity.isKnown()) << path;
}

} // namespace
} // namespace corvane
