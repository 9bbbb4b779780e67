#include <string>
#include <vector>

#include "apps/app_fixture.h"
#include "apps/leftover_rules.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using namespace std::chrono_literals;

class Orphans : public test::AppFixture {
protected:
    /// The identifiers of the groups, in their order.
    std::vector<std::string> groups()
    {
        std::vector<std::string> ids;
        for (const OrphanGroup &group : load().orphanGroups)
            ids.push_back(group.id);
        return ids;
    }
    /// Whether a file with this name in Caches is an orphan.
    bool isOrphan(const std::string &name)
    {
        addItem("Caches/" + name);
        const bool found = !load().orphanGroups.empty();
        fake.files.take(inLibrary("Caches/" + name));
        return found;
    }
};

TEST_F(Orphans, UntouchedPreferencesOfAnUnknownVendorAreOne)
{
    addItem("Preferences/org.example.tool.plist", 700, now - std::chrono::days{45});
    EXPECT_EQ(load().orphanGroups, (std::vector<OrphanGroup>{{.id = "org.example.tool",
                                                              .items = {{.path = inLibrary("Preferences/org.example."
                                                                                           "tool.plist"),
                                                                         .kind = FileNode::Kind::file,
                                                                         .size = 700,
                                                                         .location = "Preferences",
                                                                         .match = Leftover::Match::orphan,
                                                                         .modified = now - std::chrono::days{45}}}}}));
}

TEST_F(Orphans, ThisProgramsOwnDataIsNone)
{
    EXPECT_FALSE(isOrphan("app.corvane.Corvane"));
    EXPECT_FALSE(isOrphan("app.corvane.Corvane.savedState"));
}

TEST_F(Orphans, WhatWasTouchedWithinThirtyDaysIsNone)
{
    addItem("Caches/org.ten.days", 1, now - std::chrono::days{10});
    addItem("Caches/org.twentynine.days", 1, now - std::chrono::days{29});
    addItem("Caches/org.thirty.less", 1, now - std::chrono::days{30} + 1s);
    addItem("Caches/org.thirty.exactly", 1, now - std::chrono::days{30});
    addItem("Caches/org.thirty.more", 1, now - std::chrono::days{30} - 1s);
    addItem("Caches/org.twentynine.more", 1, now - std::chrono::days{29} - 1s);
    addItem("Caches/org.twentynine.less", 1, now - std::chrono::days{29} + 1s);
    addItem("Caches/org.in.future", 1, now + std::chrono::days{1});
    EXPECT_THAT(groups(), UnorderedElementsAre("org.thirty.exactly", "org.thirty.more"));
}

TEST_F(Orphans, AFolderIsJudgedByItsOwnDate)
{
    fake.files.addFolder(inLibrary("Caches/org.old.folder"), longAgo);
    addItem("Caches/org.old.folder/new", 1, now);
    fake.files.addFolder(inLibrary("Caches/org.new.folder"), now);
    addItem("Caches/org.new.folder/old", 1, longAgo);
    EXPECT_THAT(groups(), ElementsAre("org.old.folder"));
}

TEST_F(Orphans, AnUnknownDateCountsAsLongAgo)
{
    addItem("Caches/org.no.date", 1, distantPast);
    addItem("Caches/org.no.facts", 1, now);
    fake.files.failFacts(inLibrary("Caches/org.no.facts"));
    const std::vector<OrphanGroup> found = load().orphanGroups;
    ASSERT_EQ(found.size(), 2U);
    for (const OrphanGroup &group : found)
        EXPECT_EQ(group.items.at(0).modified, std::nullopt);
}

TEST_F(Orphans, WhoseVendorHasAnApplicationIsNone)
{
    addApp("/Applications/Foo.app", "Org.EXAMPLE.other");
    addItem("Caches/org.example.tool");
    addItem("Caches/org.example");
    addItem("Caches/org.examples.tool");
    EXPECT_THAT(groups(), ElementsAre("org.examples.tool"));
}

TEST_F(Orphans, AVendorIsTheFirstTwoPiecesOfAnIdentifier)
{
    EXPECT_THAT(vendorsOf({"com.foo.app", "com.foo.bar", "single", "a..b.c", "..."}),
                UnorderedElementsAre("com.foo", "single", "a.b", ""));
}

TEST_F(Orphans, FirstPiecesAreOfThisTable)
{
    EXPECT_THAT(orphanTLDs, ElementsAre("com", "org", "net", "io", "app", "dev", "co", "de", "me", "ai", "us", "uk",
                                        "fr", "jp", "cn", "ru", "info", "tv", "so", "sh", "nl", "se", "ch", "at", "it",
                                        "es", "ca", "au", "id"));
    for (const std::string_view piece : orphanTLDs)
        EXPECT_TRUE(isOrphan(std::string(piece) + ".vendor.tool")) << piece;
    for (const std::string name : {"xyz.vendor.tool", "comx.vendor.tool", "Readme", "vendor.com", ".com.vendor.tool"})
        EXPECT_FALSE(isOrphan(name)) << name;
}

TEST_F(Orphans, CaseMakesNoDifference)
{
    addItem("Caches/COM.Vendor.TOOL");
    EXPECT_THAT(groups(), ElementsAre("com.vendor.tool"));
}

TEST_F(Orphans, ANameWithASpaceIsNone)
{
    EXPECT_FALSE(isOrphan("com.vendor.my tool"));
    EXPECT_FALSE(isOrphan("com.vendor.tool 2"));
    EXPECT_TRUE(isOrphan("com.vendor.my-tool"));
}

TEST_F(Orphans, TheSystemsOwnAndGroupsAreNone)
{
    for (const std::string name : {"com.apple.tool", "com.apple", "COM.APPLE.x", "com.applesauce.tool",
                                   "group.com.vendor.tool", "systemgroup.com.vendor.tool"})
        EXPECT_FALSE(isOrphan(name)) << name;
}

TEST_F(Orphans, SuffixesAreTakenOffOnceEachInTheirOrder)
{
    addItem("Caches/com.a.tool.plist");
    addItem("Caches/com.b.tool.savedState");
    addItem("Caches/com.c.tool.binarycookies");
    addItem("Caches/com.d.tool.binarycookies.savedstate.plist");
    addItem("Caches/com.e.plist.savedstate"); // ".plist" is no longer the extension when it is checked
    EXPECT_THAT(groups(), UnorderedElementsAre("com.a.tool", "com.b.tool", "com.c.tool", "com.d.tool", "com.e.plist"));
}

TEST_F(Orphans, GroupContainersAndLaunchAgentsHaveNone)
{
    for (const LeftoverLocation &location : leftoverLocations)
        addItem(std::string(location.folder) + "/com.vendor.tool");
    const std::vector<OrphanGroup> found = load().orphanGroups;
    ASSERT_EQ(found.size(), 1U);
    std::vector<std::string> labels;
    for (const Leftover &item : found[0].items)
        labels.emplace_back(item.location);
    EXPECT_THAT(labels, ElementsAre("Application Support", "Caches", "Containers", "Preferences", "Preferences",
                                    "Saved State", "Logs", "HTTP Storage", "WebKit Data", "Cookies", "App Scripts"));
}

TEST_F(Orphans, ProtectedItemsAreNone)
{
    ProtectedPlaces places;
    places.homePrefixes = {"Library/Containers/com.vendor.tool"};
    const ProtectedLocations guard{home, places};
    addItem("Containers/com.vendor.tool/data");
    EXPECT_THAT(AppInventory::load(host, guard, now).orphanGroups, IsEmpty());
}

TEST_F(Orphans, AGroupIsTheFirstThreePieces)
{
    addItem("Caches/com.vendor.tool", 10);
    addItem("Caches/com.vendor.tool.helper.deep", 30);
    addItem("Preferences/com.vendor.tool.plist", 20);
    addItem("Caches/com.vendor.other", 100);
    addItem("Caches/com.vendor", 5);
    addItem("Caches/com", 4);
    const std::vector<OrphanGroup> found = load().orphanGroups;
    ASSERT_EQ(found.size(), 4U);
    EXPECT_EQ(found[0].id, "com.vendor.other");
    EXPECT_EQ(found[1].id, "com.vendor.tool");
    EXPECT_EQ(found[2].id, "com.vendor");
    EXPECT_EQ(found[3].id, "com");
    EXPECT_THAT(paths(found[1].items, Leftover::Match::orphan),
                ElementsAre("Caches/com.vendor.tool.helper.deep", "Preferences/com.vendor.tool.plist",
                            "Caches/com.vendor.tool"));
}

TEST_F(Orphans, TheLargestGroupByItsSumComesFirst)
{
    addItem("Caches/com.one.large", 50);
    addItem("Caches/com.two.small", 30);
    addItem("Logs/com.two.small", 30);
    EXPECT_THAT(groups(), ElementsAre("com.two.small", "com.one.large"));
}

TEST_F(Orphans, EmptyComponentsOfNamesAreHandled)
{
    addItem("Caches/com..vendor..tool");
    addItem("Caches/com..", 2);
    EXPECT_THAT(groups(), ElementsAre("com.vendor.tool", "com"));
}

TEST_F(Orphans, NamesThatAreNotUtf8AreGroupedByTheirBytes)
{
    addItem("Caches/com.vendor.caf\xe9.cache");
    EXPECT_THAT(groups(), ElementsAre("com.vendor.caf\xe9"));
}

TEST_F(Orphans, SizesThatCannotBeAddedUpCountAsNone)
{
    for (int i = 0; i < 40; ++i)
        addItem("Caches/com.vendor.tool." + std::to_string(i), std::int64_t{1} << 57);
    const std::vector<OrphanGroup> found = load().orphanGroups;
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].items.size(), 40U);
    EXPECT_EQ(found[0].size(), std::int64_t{1} << 58);
}

} // namespace
} // namespace corvane
