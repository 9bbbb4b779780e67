#include <algorithm>
#include <array>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "apps/app_fixture.h"
#include "apps/leftover_rules.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class LeftoverMatching : public test::AppFixture {};

TEST_F(LeftoverMatching, ThereAreThirteenLocationsInThisOrder)
{
    addApp("/Applications/Foo.app", "com.foo.app");
    // Sizes grow down the table, so only the search order determines which label comes first.
    const std::vector<std::pair<std::string, std::string>> expected{
        {"Application Support/com.foo.app", "Application Support"},
        {"Caches/com.foo.app", "Caches"},
        {"Containers/com.foo.app", "Containers"},
        {"Group Containers/group.com.foo.app", "Group Containers"},
        {"Preferences/com.foo.app.plist", "Preferences"},
        {"Preferences/ByHost/com.foo.app.plist", "Preferences"},
        {"Saved Application State/com.foo.app.savedState", "Saved State"},
        {"Logs/com.foo.app", "Logs"},
        {"HTTPStorages/com.foo.app", "HTTP Storage"},
        {"WebKit/com.foo.app", "WebKit Data"},
        {"Cookies/com.foo.app.binarycookies", "Cookies"},
        {"Application Scripts/com.foo.app", "App Scripts"},
        {"LaunchAgents/com.foo.app.plist", "Launch Agents"},
    };
    for (auto item = expected.rbegin(); item != expected.rend(); ++item)
        addItem(item->first, 1'000);
    addItem("Elsewhere/com.foo.app");

    const std::vector<Leftover> found = leftoversOf("com.foo.app");
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_EQ(found[i].path, inLibrary(expected[i].first));
        EXPECT_EQ(found[i].location, expected[i].second);
        EXPECT_EQ(found[i].match, Leftover::Match::exact);
    }
}

TEST_F(LeftoverMatching, MostLocationsTakeTheIdentifierAndWhatFollowsItAfterADot)
{
    addApp("/Applications/Foo.app", "com.foo.app");
    for (const std::string name : {"com.foo.app", "com.foo.app.helper", "com.foo.app.", "com.foo.app.plist"})
        addItem("Containers/" + name);
    for (const std::string name : {"com.foo.application", "com.foo.app-2", "com.foo", "xcom.foo.app", "a.com.foo.app"})
        addItem("Containers/" + name);
    EXPECT_THAT(exactOf("com.foo.app"),
                UnorderedElementsAre("Containers/com.foo.app", "Containers/com.foo.app.helper",
                                     "Containers/com.foo.app.", "Containers/com.foo.app.plist"));
}

TEST_F(LeftoverMatching, PropertyListsAreTakenByTheirEnding)
{
    addApp("/Applications/Foo.app", "com.foo.app");
    for (const std::string folder : {"Preferences", "Preferences/ByHost", "Cookies", "LaunchAgents"}) {
        for (const std::string name :
             {"com.foo.app.plist", "com.foo.app.binarycookies", "com.foo.app.x.plist", "com.foo.app.x.y.binarycookies"})
            addItem(folder + "/" + name);
        for (const std::string name : {"com.foo.app", "com.foo.app.txt", "com.foo.app.plist.lockfile",
                                       "com.foo.appplist", "com.foo.app2.plist", "x.com.foo.app.plist"})
            addItem(folder + "/" + name);
        EXPECT_THAT(exactOf("com.foo.app"),
                    UnorderedElementsAre(folder + "/com.foo.app.plist", folder + "/com.foo.app.binarycookies",
                                         folder + "/com.foo.app.x.plist", folder + "/com.foo.app.x.y.binarycookies"));
        fake.files.take(inLibrary(folder));
    }
}

TEST_F(LeftoverMatching, GroupContainersAreTakenByTheirEnd)
{
    addApp("/Applications/Foo.app", "com.foo.app");
    for (const std::string name : {"ABCDE12345.com.foo.app", "group.com.foo.app", "group.x.com.foo.app"})
        addItem("Group Containers/" + name);
    for (const std::string name : {"com.foo.app", "xcom.foo.app", "group.com.foo.app.shared", "com.foo.app.group"})
        addItem("Group Containers/" + name);
    EXPECT_THAT(exactOf("com.foo.app"),
                UnorderedElementsAre("Group Containers/ABCDE12345.com.foo.app", "Group Containers/group.com.foo.app",
                                     "Group Containers/group.x.com.foo.app"));
}

TEST_F(LeftoverMatching, SavedStateIsTakenByItsWholeName)
{
    addApp("/Applications/Foo.app", "com.foo.app");
    addItem("Saved Application State/com.foo.app.savedState/window.data");
    for (const std::string name : {"com.foo.app", "com.foo.app.x.savedState", "com.foo.app.savedState.old"})
        addItem("Saved Application State/" + name);
    EXPECT_THAT(exactOf("com.foo.app"), ElementsAre("Saved Application State/com.foo.app.savedState"));
}

TEST_F(LeftoverMatching, CaseMakesNoDifference)
{
    addApp("/Applications/Foo.app", "Com.FOO.App");
    addItem("Caches/com.foo.app");
    addItem("Containers/COM.Foo.aPP.Helper");
    addItem("Preferences/com.foo.app.PLIST");
    EXPECT_THAT(exactOf("Com.FOO.App"), UnorderedElementsAre("Caches/com.foo.app", "Containers/COM.Foo.aPP.Helper",
                                                             "Preferences/com.foo.app.PLIST"));
}

TEST_F(LeftoverMatching, NamesThatDifferInCaseOnlyAreBothTaken)
{
    addApp("/Applications/Foo.app", "com.foo.app");
    addItem("Caches/com.foo.app");
    addItem("Caches/com.Foo.app");
    EXPECT_THAT(exactOf("com.foo.app"), UnorderedElementsAre("Caches/com.foo.app", "Caches/com.Foo.app"));
}

TEST_F(LeftoverMatching, WhatALongerIdentifierClaimsIsNotTaken)
{
    addApp("/Applications/Foo.app", "com.foo.app");
    addItem("Preferences/com.foo.app.plist");
    addItem("Preferences/com.foo.app.helper.plist");
    addItem("Caches/com.foo.app.helper");
    addItem("Caches/com.foo.app.helpers");
    EXPECT_THAT(exactOf("com.foo.app"),
                UnorderedElementsAre("Preferences/com.foo.app.plist", "Preferences/com.foo.app.helper.plist",
                                     "Caches/com.foo.app.helper", "Caches/com.foo.app.helpers"));

    addApp("/Applications/Foo Helper.app", "com.foo.app.HELPER");
    EXPECT_THAT(exactOf("com.foo.app"),
                UnorderedElementsAre("Preferences/com.foo.app.plist", "Caches/com.foo.app.helpers"));
    EXPECT_THAT(exactOf("com.foo.app.HELPER"),
                UnorderedElementsAre("Preferences/com.foo.app.helper.plist", "Caches/com.foo.app.helper"));
}

TEST_F(LeftoverMatching, AnIdentifierThatGoesOnWithoutADotClaimsNothing)
{
    addApp("/Applications/Foo.app", "com.foo.app");
    addApp("/Applications/Foo2.app", "com.foo.app2");
    addItem("Caches/com.foo.app");
    addItem("Caches/com.foo.app2");
    addItem("Caches/com.foo.app.cache");
    EXPECT_THAT(exactOf("com.foo.app"), UnorderedElementsAre("Caches/com.foo.app", "Caches/com.foo.app.cache"));
    EXPECT_THAT(exactOf("com.foo.app2"), ElementsAre("Caches/com.foo.app2"));
}

TEST_F(LeftoverMatching, ALongerIdentifierClaimsEvenWhatItsOwnRuleLeaves)
{
    addApp("/Applications/Foo.app", "com.foo.app");
    addApp("/Applications/Bar.app", "com.foo.app.plist");
    addItem("Preferences/com.foo.app.plist");
    EXPECT_THAT(exactOf("com.foo.app"), IsEmpty());
    EXPECT_THAT(exactOf("com.foo.app.plist"), IsEmpty());
}

TEST_F(LeftoverMatching, TwoApplicationsOfOneIdentifierHaveTheSameLeftovers)
{
    addApp("/Applications/Foo.app", "com.foo.app");
    addApp("/Applications/Old/Foo.app", "com.Foo.app");
    addItem("Caches/com.foo.app");
    EXPECT_THAT(exactOf("com.foo.app"), ElementsAre("Caches/com.foo.app"));
    EXPECT_THAT(exactOf("com.Foo.app"), ElementsAre("Caches/com.foo.app"));
}

TEST_F(LeftoverMatching, EmptyComponentsOfNamesAreHandled)
{
    addApp("/Applications/Odd.app", "com..odd");
    addApp("/Applications/Dots.app", "..");
    addItem("Caches/com..odd");
    addItem("Caches/com..odd..x");
    addItem("Caches/com.odd");
    addItem("Caches/...x");
    addItem("Group Containers/group...");
    EXPECT_THAT(exactOf("com..odd"), UnorderedElementsAre("Caches/com..odd", "Caches/com..odd..x"));
    EXPECT_THAT(exactOf(".."), UnorderedElementsAre("Caches/...x", "Group Containers/group..."));
}

TEST_F(LeftoverMatching, WithoutAnIdentifierNothingIsTaken)
{
    addItem("Caches/.hidden");
    addItem("Group Containers/ends.");
    const LibraryListings listings = LibraryListings::read(home, fake.files);
    const SearchContext context{.files = fake.files, .locations = locations, .now = now};
    const BundleInfo bundle{.path = "/A.app", .name = "A", .altName = "A", .bundleID = {}, .version = {}};
    EXPECT_THAT(AppInventory::findLeftovers(bundle, {""}, listings, context), IsEmpty());
}

TEST_F(LeftoverMatching, NamesThatAreNotUtf8AreTakenByTheirBytes)
{
    addApp("/Applications/F\xff"
           "Oo.app",
           "com.foo.app");
    addItem("Caches/com.foo.app.\xe9");
    addItem("Logs/f\xff"
            "oo");
    EXPECT_THAT(exactOf("com.foo.app"), ElementsAre("Caches/com.foo.app.\xe9"));
    EXPECT_THAT(namedOf("com.foo.app"), ElementsAre("Logs/f\xff"
                                                    "oo"));
}

TEST_F(LeftoverMatching, ProtectedItemsAreNotTaken)
{
    addApp("/Applications/Foo.app", "com.foo.app");
    ProtectedPlaces places;
    places.homePrefixes = {"Library/Containers/com.foo.app"};
    const ProtectedLocations guard{home, places};
    addItem("Containers/com.foo.app/data");
    addItem("Caches/com.foo.app");
    const AppInventory::Result result = AppInventory::load(host, guard, now);
    EXPECT_THAT(paths(result.apps.at(0).leftovers, Leftover::Match::exact), ElementsAre("Caches/com.foo.app"));
}

TEST_F(LeftoverMatching, ItemsBehindALinkIntoAProtectedFolderAreNotTaken)
{
    addApp("/Applications/Mail Tool.app", "com.foo.app");
    fake.files.addFile(inLibrary("Mail/com.foo.app"), 1'000);
    fake.files.addLink(inLibrary("Containers"), inLibrary("Mail"));
    EXPECT_THAT(exactOf("com.foo.app"), IsEmpty());
}

TEST_F(LeftoverMatching, ALeftoverHasItsSizeKindAndDate)
{
    addApp("/Applications/Foo.app", "com.foo.app");
    fake.files.setPackageExtensions({"bundle"});
    fake.files.addFolder(inLibrary("Caches/com.foo.app"), longAgo);
    addItem("Caches/com.foo.app/deep/file", 7'000);
    addItem("Preferences/com.foo.app.plist", 500, now);
    fake.files.addFolder(inLibrary("Logs/com.foo.app.bundle"));
    const std::vector<Leftover> found = leftoversOf("com.foo.app");
    EXPECT_THAT(found, ElementsAre(Leftover{.path = inLibrary("Caches/com.foo.app"),
                                            .kind = FileNode::Kind::directory,
                                            .size = 7'000,
                                            .location = "Caches",
                                            .match = Leftover::Match::exact,
                                            .modified = longAgo},
                                   Leftover{.path = inLibrary("Preferences/com.foo.app.plist"),
                                            .kind = FileNode::Kind::file,
                                            .size = 500,
                                            .location = "Preferences",
                                            .match = Leftover::Match::exact,
                                            .modified = now},
                                   Leftover{.path = inLibrary("Logs/com.foo.app.bundle"),
                                            .kind = FileNode::Kind::package,
                                            .size = 0,
                                            .location = "Logs",
                                            .match = Leftover::Match::exact,
                                            .modified = std::nullopt}));
}

TEST_F(LeftoverMatching, ALinkIsALeftoverOfNoSize)
{
    addApp("/Applications/Foo.app", "com.foo.app");
    fake.files.addFile("/elsewhere/film", 9'000'000);
    fake.files.addLink(inLibrary("Caches/com.foo.app"), "/elsewhere");
    const std::vector<Leftover> found = leftoversOf("com.foo.app");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].size, 0);
    EXPECT_EQ(found[0].kind, FileNode::Kind::file);
}

TEST_F(LeftoverMatching, WhatCannotBeLookedAtIsALeftoverOfNoSizeAndNoDate)
{
    addApp("/Applications/Foo.app", "com.foo.app");
    addItem("Caches/com.foo.app");
    fake.files.failFacts(inLibrary("Caches/com.foo.app"));
    const std::vector<Leftover> found = leftoversOf("com.foo.app");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].size, 0);
    EXPECT_EQ(found[0].modified, std::nullopt);
}

TEST_F(LeftoverMatching, TheLargestComesFirstWhateverItsMatch)
{
    addApp("/Applications/Foobar.app", "com.foo.app");
    addItem("Caches/com.foo.app", 2'000);
    addItem("Logs/Foobar", 3'000);
    addItem("Preferences/com.foo.app.plist", 1'000);
    const std::vector<Leftover> found = leftoversOf("com.foo.app");
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0].path, inLibrary("Logs/Foobar"));
    EXPECT_EQ(found[1].path, inLibrary("Caches/com.foo.app"));
    EXPECT_EQ(found[2].path, inLibrary("Preferences/com.foo.app.plist"));
}

TEST_F(LeftoverMatching, SizesThatCannotBeAddedUpCountAsNone)
{
    addApp("/Applications/Foo.app", "com.foo.app");
    for (int i = 0; i < 9; ++i)
        addItem("Caches/com.foo.app." + std::to_string(i), std::int64_t{1} << 56);
    const AppInventory::Result result = load();
    EXPECT_LE(result.apps.at(0).exactLeftoverSize(), std::int64_t{1} << 58);
    EXPECT_EQ(result.apps.at(0).leftovers.size(), 9U);
}

TEST_F(LeftoverMatching, FoldersNamedLikeTheApplicationAreNameMatches)
{
    addBundle("/Applications/Sea Chart.app",
              test::infoPlist({{"CFBundleIdentifier", "org.sea"}, {"CFBundleName", "Chartroom"}}));
    for (const std::string folder : {"Application Support", "Caches", "Logs"}) {
        addItem(folder + "/sea CHART");
        addItem(folder + "/chartroom");
        addItem(folder + "/Sea Chart 2");
        addItem(folder + "/Sea Chart.log");
    }
    for (const std::string folder : {"Containers", "Preferences", "WebKit", "HTTPStorages", "LaunchAgents"})
        addItem(folder + "/Sea Chart");
    EXPECT_THAT(namedOf("org.sea"),
                UnorderedElementsAre("Application Support/sea CHART", "Caches/sea CHART", "Logs/sea CHART",
                                     "Application Support/chartroom", "Caches/chartroom", "Logs/chartroom"));
    EXPECT_THAT(exactOf("org.sea"), IsEmpty());
}

TEST_F(LeftoverMatching, NamesBeyondAsciiMatchInAnyCase)
{
    addApp("/Applications/Éditeur.app", "fr.editeur");
    addItem("Caches/éDITEUR");
    EXPECT_THAT(namedOf("fr.editeur"), ElementsAre("Caches/éDITEUR"));
}

TEST_F(LeftoverMatching, GenericNamesMatchNothing)
{
    EXPECT_THAT(genericNames,
                ElementsAre("google", "microsoft", "adobe", "apple", "jetbrains", "mozilla", "electron", "crashpad",
                            "sentry", "squirrel", "app", "data", "cache", "caches", "logs", "temp", "tmp", "default"));
    for (const std::string_view generic : genericNames) {
        const std::string name(generic);
        addApp("/Applications/" + name + ".app", "com.generic." + name);
        addItem("Caches/" + name);
        EXPECT_THAT(namedOf("com.generic." + name), IsEmpty()) << name;
    }
    addApp("/Applications/Data.app", "com.example.data");
    EXPECT_THAT(namedOf("com.example.data"), IsEmpty());
}

TEST_F(LeftoverMatching, NamesOfThreeCharactersMatchNothing)
{
    addApp("/Applications/Foo.app", "com.example.foo");
    addApp("/Applications/Zoë.app", "com.example.zoe");
    addApp("/Applications/Zoe\xcc\x88.app", "com.example.zoe2");
    addApp("/Applications/Four.app", "com.example.four");
    addApp("/Applications/Éric.app", "com.example.eric");
    for (const std::string name : {"Foo", "Zoë", "Zoe\xcc\x88", "Four", "Éric"})
        addItem("Caches/" + name);
    EXPECT_THAT(namedOf("com.example.foo"), IsEmpty());
    EXPECT_THAT(namedOf("com.example.zoe"), IsEmpty());
    EXPECT_THAT(namedOf("com.example.zoe2"), IsEmpty());
    EXPECT_THAT(namedOf("com.example.four"), ElementsAre("Caches/Four"));
    EXPECT_THAT(namedOf("com.example.eric"), ElementsAre("Caches/Éric"));
}

TEST_F(LeftoverMatching, WhatTheIdentifierTookIsNoNameMatch)
{
    addApp("/Applications/seachart.app", "SeaChart");
    addItem("Caches/seachart");
    EXPECT_THAT(exactOf("SeaChart"), ElementsAre("Caches/seachart"));
    EXPECT_THAT(namedOf("SeaChart"), IsEmpty());
}

TEST_F(LeftoverMatching, AnItemIsTakenOnceWhateverTheOtherIdentifiers)
{
    addItem("Caches/seachart");
    const LibraryListings listings = LibraryListings::read(home, fake.files);
    const SearchContext context{.files = fake.files, .locations = locations, .now = now};
    const BundleInfo bundle{
        .path = "/A.app", .name = "SeaChart", .altName = "SeaChart", .bundleID = "seachart", .version = {}};
    const std::vector<Leftover> found = AppInventory::findLeftovers(bundle, {}, listings, context);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].match, Leftover::Match::exact);
}

TEST_F(LeftoverMatching, WhatAnotherApplicationsIdentifierTookIsNoNameMatch)
{
    addApp("/Applications/SeaChart.app", "org.sea");
    addApp("/Applications/Other.app", "seachart");
    addItem("Caches/SeaChart");
    addItem("Logs/SeaChart");
    EXPECT_THAT(namedOf("org.sea"), IsEmpty());
    EXPECT_THAT(exactOf("seachart"), UnorderedElementsAre("Caches/SeaChart", "Logs/SeaChart"));
}

TEST_F(LeftoverMatching, ANameThatIsBothFileAndBundleNameIsTakenOnce)
{
    addBundle("/Applications/Chart.app",
              test::infoPlist({{"CFBundleIdentifier", "org.sea"}, {"CFBundleName", "CHART"}}));
    addItem("Caches/chart");
    EXPECT_THAT(namedOf("org.sea"), ElementsAre("Caches/chart"));
}

TEST_F(LeftoverMatching, NothingIsLookedAtThatDoesNotMatch)
{
    addApp("/Applications/Foo.app", "com.foo.app");
    addItem("Caches/com.other.thing", 1'000, now);
    addItem("Caches/Readme");
    EXPECT_THAT(exactOf("com.foo.app"), IsEmpty());
    for (const std::string &call : fake.log->lines()) {
        EXPECT_NE(call, "facts " + inLibrary("Caches/Readme"));
        EXPECT_EQ(call.find("list " + inLibrary("Caches/")), std::string::npos) << call;
    }
}

/// A reference implementation of the rule for exact matches: item by item, without lookup tables. `longerIDs` begin
/// with the identifier and a dot.
bool belongsTo(const std::string &id, const std::vector<std::string> &longerIDs, std::size_t location,
               const std::string &name)
{
    for (const std::string &other : longerIDs) {
        if (name == other || name.starts_with(other + "."))
            return false;
    }
    const std::string_view folder = leftoverLocations[location].folder;
    if (folder == "Group Containers")
        return name.ends_with("." + id) || name == "group." + id;
    if (folder == "Saved Application State")
        return name == id + ".savedstate";
    if (folder == "Preferences" || folder == "Preferences/ByHost" || folder == "LaunchAgents" || folder == "Cookies") {
        const bool hasEnding = name.ends_with(".plist") || name.ends_with(".binarycookies");
        return name == id + ".plist" || name == id + ".binarycookies" || (name.starts_with(id + ".") && hasEnding);
    }
    return name == id || name.starts_with(id + ".");
}

TEST_F(LeftoverMatching, LookingItemsUpFindsWhatGoingThroughThemFinds)
{
    std::mt19937 random(7);
    const auto pick = [&](const std::vector<std::string> &texts) { return texts[random() % texts.size()]; };
    const auto makeName = [&](const std::vector<std::string> &ends) {
        std::string name = pick({"com", "a", "group", "x1.com"});
        for (std::size_t pieces = random() % 4; pieces > 0; --pieces)
            name += pick({".", ".", "-"}) + pick({"a", "b", "ab", "", "plist"});
        return name + pick(ends);
    };
    for (int round = 0; round < 30; ++round) {
        std::vector<std::string> allIDs;
        for (int i = 0; i < 40; ++i)
            allIDs.push_back(makeName({""}));
        LibraryListings listings{.library = home + "/Library"};
        std::array<std::set<std::string>, leftoverLocations.size()> names;
        for (std::size_t i = 0; i < names.size(); ++i) {
            for (int item = 0; item < 60; ++item)
                names[i].insert(makeName({"", ".plist", ".savedstate", ".binarycookies"}));
            listings.listings[i] = LibraryListings::make(i, {names[i].begin(), names[i].end()});
        }
        const SearchContext context{.files = fake.files, .locations = locations, .now = now};
        for (const std::string &id : allIDs) {
            const BundleInfo bundle{.path = "/A.app", .name = "A", .altName = "A", .bundleID = id, .version = {}};
            std::vector<std::string> found;
            for (const Leftover &leftover : AppInventory::findLeftovers(bundle, allIDs, listings, context))
                found.push_back(leftover.path);
            std::vector<std::string> longerIDs;
            std::ranges::copy_if(allIDs, std::back_inserter(longerIDs),
                                 [&](const std::string &other) { return other.starts_with(id + "."); });
            std::vector<std::string> expected;
            for (std::size_t i = 0; i < names.size(); ++i) {
                for (const std::string &name : names[i]) {
                    if (belongsTo(id, longerIDs, i, name))
                        expected.push_back(inLibrary(std::string(leftoverLocations[i].folder) + "/" + name));
                }
            }
            std::ranges::sort(found);
            std::ranges::sort(expected);
            ASSERT_EQ(found, expected) << id;
        }
    }
}

} // namespace
} // namespace corvane
