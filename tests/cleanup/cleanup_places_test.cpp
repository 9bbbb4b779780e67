#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cleanup/cleanup_places_fixture.h"
#include "platform/path.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::span<const CleanupDefinition> ownRows = cleanupTableOf(SystemKind::linuxSystem).rows;

std::vector<const CleanupDefinition *> everyRow()
{
    std::vector<const CleanupDefinition *> rows;
    for (const CleanupDefinition &row : CleanupCatalog::definitions)
        rows.push_back(&row);
    for (const CleanupDefinition &row : ownRows)
        rows.push_back(&row);
    return rows;
}

std::vector<std::string> placesOf(const CleanupDefinition &row)
{
    std::vector<std::string> places{std::string(row.relativePath)};
    for (const std::string_view place : row.morePaths) {
        if (!place.empty())
            places.emplace_back(place);
    }
    return places;
}

bool isPattern(const std::string &place)
{
    return place.find('*') != std::string::npos;
}

TEST(CleanupTables, AMacHasTheRowsOfEverySystemAlone)
{
    const CleanupTable &mac = cleanupTableOf(SystemKind::mac);
    EXPECT_TRUE(mac.rows.empty());
    EXPECT_TRUE(mac.commands.empty());
    EXPECT_FALSE(mac.foldsEmptyRows);
}

TEST(CleanupTables, IdsAndPlacesAreUnique)
{
    std::set<std::string_view> ids;
    std::set<std::string> places;
    for (const CleanupDefinition &row : CleanupCatalog::definitions)
        ids.insert(row.id);
    for (const CleanupDefinition &row : ownRows) {
        EXPECT_TRUE(ids.insert(row.id).second) << row.id;
        for (const std::string &place : placesOf(row))
            EXPECT_TRUE(places.insert(place).second) << place;
    }
}

TEST(CleanupTables, ForeignRowsAreRowsOfEverySystem)
{
    for (const std::string_view id : cleanupTableOf(SystemKind::linuxSystem).foreignRows)
        EXPECT_NE(std::ranges::find(CleanupCatalog::definitions, id, &CleanupDefinition::id),
                  CleanupCatalog::definitions.end())
            << id;
}

TEST(CleanupTables, WhatDoesNotComeBackIsToBeReviewed)
{
    std::vector<std::string_view> review;
    for (const CleanupDefinition &row : ownRows) {
        if (row.risk == CleanupRisk::review)
            review.push_back(row.id);
    }
    EXPECT_THAT(review, ElementsAre("containers", "hfmodels", "ollama", "vmdisks", "virtualbox"));
}

TEST_F(CleanupPlacesTest, TheRowsOfEverySystemComeFirstAndTheOwnOnesInTheSameOrder)
{
    files.addFile("/home/me/Downloads/film", 1'000);
    files.addFile("/home/me/.cache/app", 2'000);
    files.addFile("/home/me/.cargo/registry/crate", 3'000);
    files.addFile("/home/me/.ollama/models/blob", 5'000);
    measure();
    ASSERT_EQ(items.size(), CleanupCatalog::definitions.size() + ownRows.size());
    EXPECT_EQ(items[0].def->id, "caches");
    EXPECT_EQ(items[1].def->id, "downloads");
    EXPECT_EQ(items[18].def->id, "ollama");
    EXPECT_EQ(items[19].def->id, "cargo");
    const auto own = items.begin() + 18;
    EXPECT_TRUE(std::is_sorted(items.begin(), own, [](const auto &a, const auto &b) { return a.total() > b.total(); }));
    EXPECT_TRUE(std::is_sorted(own, items.end(), [](const auto &a, const auto &b) { return a.total() > b.total(); }));
}

TEST_F(CleanupPlacesTest, AMacRootHasNoOtherRows)
{
    files.setSystemKind(SystemKind::mac);
    files.addFile("/home/me/.cargo/registry/crate", 3'000);
    measure();
    EXPECT_EQ(items.size(), 18u);
}

TEST_F(CleanupPlacesTest, EveryPlaceOfEveryRowIsMeasured)
{
    for (const CleanupDefinition &row : ownRows) {
        for (std::string place : placesOf(row)) {
            if (isPattern(place))
                place.replace(place.find('*'), 1, "app");
            files.addFile("/home/me/" + place + "/item", 1'000);
        }
    }
    measure();
    for (const CleanupDefinition &row : ownRows) {
        EXPECT_EQ(item(row.id).total(), static_cast<std::int64_t>(placesOf(row).size()) * 1'000) << row.id;
        EXPECT_TRUE(item(row.id).exists) << row.id;
    }
    EXPECT_THAT(paths("caches"), IsEmpty());
}

TEST_F(CleanupPlacesTest, APlaceThatLiesInTwoRowsCountsInTheMoreSpecialOneOnly)
{
    files.addFile("/home/me/.cache/pip/wheel", 4'000);
    files.addFile("/home/me/.cache/browser/page", 2'000);
    files.addFile("/home/me/.cache/huggingface/token", 10);
    files.addFile("/home/me/.cache/huggingface/hub/model", 9'000);
    measure();
    EXPECT_THAT(paths("caches"), ElementsAre("/home/me/.cache/browser"));
    EXPECT_THAT(paths("pip"), ElementsAre("/home/me/.cache/pip/wheel"));
    EXPECT_THAT(paths("hfmodels"),
                ElementsAre("/home/me/.cache/huggingface/hub/model", "/home/me/.cache/huggingface/token"));
    EXPECT_EQ(safeTotal(items), 6'000);
}

TEST_F(CleanupPlacesTest, OfAnEntryThatHoldsAPlaceOfAnotherRowTheRestIsListed)
{
    files.addFile("/home/me/.cache/tools/pip/wheel", 4'000);
    files.addFile("/home/me/.cache/tools/other", 2'000);
    set(".cache/pip", "/home/me/.cache/tools/pip");
    measure();
    EXPECT_THAT(item("caches").entries,
                ElementsAre(CleanupEntry{"/home/me/.cache/tools/other", 2'000, FileNode::Kind::file, "tools/other"}));
    EXPECT_THAT(paths("pip"), ElementsAre("/home/me/.cache/tools/pip/wheel"));
}

TEST_F(CleanupPlacesTest, OfAnApplicationsCacheThatHoldsAPlaceOfAnotherRowTheRestIsListed)
{
    files.addFile("/home/me/.var/app/org.x/cache/pip/wheel", 4'000);
    files.addFile("/home/me/.var/app/org.x/cache/shaders", 2'000);
    set(".cache/pip", "/home/me/.var/app/org.x/cache/pip");
    measure();
    EXPECT_THAT(item("flatpakcaches").entries, ElementsAre(CleanupEntry{"/home/me/.var/app/org.x/cache/shaders", 2'000,
                                                                        FileNode::Kind::file, "org.x/shaders"}));
}

TEST_F(CleanupPlacesTest, ThePlaceThatTwoToolsShareCountsOnce)
{
    files.addFile("/data/shared/blob", 4'000);
    set(".cache/pip", "/data/shared");
    set(".cache/uv", "/data/shared");
    measure();
    EXPECT_EQ(paths("pip").size() + paths("uv").size(), 1u);
    EXPECT_EQ(safeTotal(items), 4'000);
}

TEST_F(CleanupPlacesTest, WhatIsToBeReviewedIsNeverSafeAsWell)
{
    files.addFile("/data/shared/blob", 4'000);
    for (const char *safe : {".cache/pip", "go/pkg/mod"})
        set(safe, "/data/shared");
    set(".ollama/models", "/data/shared");
    measure();
    EXPECT_THAT(paths("ollama"), ElementsAre("/data/shared/blob"));
    EXPECT_EQ(safeTotal(items), 0);
}

TEST_F(CleanupPlacesTest, APlaceThatIsMountedTwiceCountsOnce)
{
    files.addFile("/home/me/.cache/go-build/object", 4'000);
    files.addFolder("/home/me/.cache/alias");
    files.identify("/home/me/.cache/alias", "/home/me/.cache/go-build");
    files.addMount({"/", 1, "/"});
    files.addMount({"/home/me/.cache/alias", 1, "/home/me/.cache/go-build"});
    measure();
    EXPECT_THAT(paths("caches"), IsEmpty());
    EXPECT_EQ(item("gobuild").total(), 4'000);
}

TEST_F(CleanupPlacesTest, TwoPlacesOfOneRowThatAreTheSameFolderCountOnce)
{
    files.addFile("/home/me/.local/share/Steam/steamapps/shadercache/1/a", 4'000);
    files.addFolder("/home/me/.steam");
    files.addLink("/home/me/.steam/steam", "/home/me/.local/share/Steam");
    measure();
    EXPECT_THAT(paths("shadercaches"), ElementsAre("/home/me/.local/share/Steam/steamapps/shadercache/1"));
}

TEST_F(CleanupPlacesTest, TheCacheOfEveryApplicationIsOneEntryThatIsCalledAsTheApplication)
{
    files.addFile("/home/me/.var/app/org.a/cache/x/deep", 4'000);
    files.addFile("/home/me/.var/app/org.b/cache/y", 2'000);
    files.addFile("/home/me/.var/app/org.b/data/precious", 9'000);
    files.addFile("/home/me/snap/editor/common/.cache/z", 1'000);
    measure();
    EXPECT_THAT(item("flatpakcaches").entries,
                ElementsAre(CleanupEntry{"/home/me/.var/app/org.a/cache", 4'000, FileNode::Kind::directory, "org.a"},
                            CleanupEntry{"/home/me/.var/app/org.b/cache", 2'000, FileNode::Kind::directory, "org.b"}));
    EXPECT_EQ(item("flatpakcaches").path, "/home/me/.var/app");
    EXPECT_THAT(item("snapcaches").entries, ElementsAre(CleanupEntry{"/home/me/snap/editor/common/.cache", 1'000,
                                                                     FileNode::Kind::directory, "editor"}));
}

TEST_F(CleanupPlacesTest, WithoutTheCacheOfAnyApplicationTheRowDoesNotExist)
{
    files.addFile("/home/me/.var/app/org.b/data/precious", 9'000);
    measure();
    EXPECT_FALSE(item("flatpakcaches").exists);
    EXPECT_EQ(item("flatpakcaches").path, "/home/me/.var/app");
}

TEST_F(CleanupPlacesTest, ApplicationsThatCannotBeListedAreNotAccessible)
{
    files.addFolder("/home/me/.var/app");
    files.failOpening("/home/me/.var/app");
    measure();
    EXPECT_FALSE(item("flatpakcaches").accessible);
    EXPECT_TRUE(item("flatpakcaches").exists);
}

TEST_F(CleanupPlacesTest, ALinkInPlaceOfAnApplicationOrItsCacheIsNotFollowed)
{
    files.addFile("/home/me/Documents/cache/letter", 4'000);
    files.addFolder("/home/me/.var/app/org.b");
    files.addLink("/home/me/.var/app/org.a", "/home/me/Documents");
    files.addLink("/home/me/.var/app/org.b/cache", "/home/me/Documents");
    files.addFolder("/home/me/snap/editor");
    files.addLink("/home/me/snap/editor/common", "/home/me/Documents/snapped");
    files.addFile("/home/me/Documents/snapped/.cache/letter", 4'000);
    measure();
    EXPECT_FALSE(item("flatpakcaches").exists);
    EXPECT_FALSE(item("snapcaches").exists);
    EXPECT_EQ(safeTotal(items), 0);
}

TEST_F(CleanupPlacesTest, AMainFolderThatIsMountedOnAnApplicationsCacheIsRefused)
{
    files.addFolder("/home/me/.var/app/org.a/cache");
    files.addFile("/home/me/Documents/letter", 4'000);
    files.identify("/home/me/.var/app/org.a/cache", "/home/me/Documents");
    files.addMount({"/", 1, "/"});
    files.addMount({"/home/me/.var/app/org.a/cache", 1, "/home/me/Documents"});
    measure();
    EXPECT_FALSE(item("flatpakcaches").exists);
}

TEST_F(CleanupPlacesTest, NoPlaceOfAnyRowMayBeSetToWhatIsNotItsOwn)
{
    files.addFile("/home/me/Documents/thesis/chapter", 4'000);
    files.addFile("/home/me/.ssh/id", 4'000);
    files.addFile("/etc/passwd", 4'000);
    files.addLink("/data/link", "/home/me/Documents");
    files.addFolder("/data/mounted");
    files.identify("/data/mounted", "/home/me/Documents");
    files.addMount({"/", 1, "/"});
    files.addMount({"/data/mounted", 1, "/home/me/Documents"});
    for (const CleanupDefinition *row : everyRow()) {
        for (const std::string &place : placesOf(*row)) {
            if (isPattern(place))
                continue;
            const OwnPlace before =
                files.ownPlaceFor(place).value_or(OwnPlace{"/home/me/" + place, "/home/me/" + place});
            for (const char *folder : {"/", "/home", "/home/me", "/home/me/Documents", "/home/me/Documents/thesis",
                                       "/home/me/.ssh", "/etc", "/data/link", "/data/mounted"}) {
                set(place, folder);
                files.setUserFolders(place == "Downloads" ? std::vector<std::string>{folder}
                                                          : std::vector<std::string>{}); // in the user's folder list
                const CleanupItem measured = CleanupCatalog::measure(*row, files);
                EXPECT_THAT(measured.entries, IsEmpty()) << place << " in " << folder;
            }
            files.setOwnPlace(place, before);
        }
    }
}

TEST_F(CleanupPlacesTest, NoPlaceOfAnyRowMayBeALinkOrAMountOfWhatIsNotItsOwn)
{
    files.addFile("/home/me/Documents/thesis/chapter", 4'000);
    files.addFile("/home/me/.ssh/id", 4'000);
    files.addMount({"/", 1, "/"});
    for (const CleanupDefinition *row : everyRow()) {
        for (std::string place : placesOf(*row)) {
            if (isPattern(place))
                place.replace(place.find('*'), 1, "app");
            const std::optional<OwnPlace> own = files.ownPlaceFor(place);
            const std::string path = own ? own->path : "/home/me/" + place;
            for (const char *target : {"/", "/home/me", "/home/me/Documents", "/home/me/.ssh"}) {
                files.addFolder(path);
                files.take(path);
                files.addLink(path, target);
                EXPECT_THAT(CleanupCatalog::measure(*row, files).entries, IsEmpty()) << place << " to " << target;
                files.take(path);
            }
            files.addFolder(path);
            files.identify(path, "/home/me/Documents");
            files.addMount({path, 1, "/home/me/Documents"});
            EXPECT_THAT(CleanupCatalog::measure(*row, files).entries, IsEmpty()) << place << " mounted";
            files.take(path);
        }
    }
}

TEST_F(CleanupPlacesTest, EveryPlaceThatLiesInsideOneOfAnotherRowCountsInItsOwnRowOnly)
{
    struct Located {
        const CleanupDefinition *row;
        std::string path;
    };
    std::vector<Located> located;
    for (const CleanupDefinition *row : everyRow()) {
        for (std::string place : placesOf(*row)) {
            if (isPattern(place))
                place.replace(place.find('*'), 1, "app");
            const std::optional<OwnPlace> own = files.ownPlaceFor(place);
            located.push_back({row, own ? own->path : "/home/me/" + place});
        }
    }
    int pairs = 0;
    for (const Located &around : located) {
        for (const Located &inside : located) {
            if (inside.row == around.row || !liesBeneath(inside.path, around.path))
                continue;
            ++pairs;
            SCOPED_TRACE(around.path + " around " + inside.path);
            const std::string file = inside.path + "/item";
            files.addFile(file, 5'000);
            measure();
            EXPECT_EQ(item(inside.row->id).total(), 5'000);
            EXPECT_EQ(item(around.row->id).total(), 0);
            files.take(file);
        }
    }
    EXPECT_GT(pairs, 10);
}

TEST_F(CleanupPlacesTest, OfEveryTwoRowsAFolderThatBothAreSetToCountsInOne)
{
    files.addFile("/data/shared/blob", 4'000);
    const std::vector<const CleanupDefinition *> rows = everyRow();
    for (std::size_t first = 0; first < rows.size(); ++first) {
        for (std::size_t second = first + 1; second < rows.size(); ++second) {
            const std::string one(rows[first]->relativePath);
            const std::string other(rows[second]->relativePath);
            if (isPattern(one) || isPattern(other))
                continue;
            SCOPED_TRACE(one + " and " + other);
            const OwnPlace before = files.ownPlaceFor(one).value_or(OwnPlace{"/home/me/" + one, "/home/me/" + one});
            set(one, "/data/shared");
            set(other, "/data/shared");
            const CleanupPlaces places(files);
            const std::size_t inFirst = places.rowOf(*rows[first]).places.size();
            const std::size_t inSecond = places.rowOf(*rows[second]).places.size();
            EXPECT_EQ(inFirst + inSecond, 1u);
            const bool isReviewFirst = rows[first]->risk == CleanupRisk::review;
            const bool isReviewSecond = rows[second]->risk == CleanupRisk::review;
            if (isReviewFirst != isReviewSecond) {
                EXPECT_EQ(isReviewFirst ? inFirst : inSecond, 1u);
            }
            files.setOwnPlace(one, before);
            files.setOwnPlace(other, {"/home/me/" + other, "/home/me/" + other});
        }
    }
}

TEST_F(CleanupPlacesTest, AUserFolderThatIsTheUsualPlaceOfARowIsRefused)
{
    files.addFile("/home/me/VirtualBox VMs/mine", 4'000);
    files.setUserFolders({"/home/me/VirtualBox VMs"});
    measure();
    EXPECT_FALSE(item("virtualbox").exists);
    EXPECT_EQ(item("virtualbox").path, "");
}

TEST_F(CleanupPlacesTest, RowsThatHoldNothingAreFoldedAndThoseOfAMacHidden)
{
    measure();
    const CleanupTable &table = cleanupTableOf(SystemKind::linuxSystem);
    EXPECT_EQ(showingOf(item("caches"), table), Showing::shown);
    EXPECT_EQ(showingOf(item("npm"), table), Showing::folded);
    EXPECT_EQ(showingOf(item("cargo"), table), Showing::folded);
    EXPECT_EQ(showingOf(item("deriveddata"), table), Showing::hidden);
    EXPECT_EQ(showingOf(item("deriveddata"), cleanupTableOf(SystemKind::mac)), Showing::shown);
    files.addFile("/home/me/Library/Developer/Xcode/DerivedData/app", 1'000);
    measure();
    EXPECT_EQ(showingOf(item("deriveddata"), table), Showing::shown);
    EXPECT_EQ(foldedText(12, 1), "12 more places hold nothing");
    EXPECT_EQ(foldedText(1, 3), "1 more place holds nothing");
    EXPECT_EQ(foldedText(12, 0), "12 places hold nothing");
    EXPECT_EQ(foldedText(1, 0), "1 place holds nothing");
}

TEST_F(CleanupPlacesTest, AfterARemovalTheRowsOfEverySystemStillComeFirst)
{
    files.addFile("/home/me/.cache/app", 2'000);
    files.addFile("/home/me/.cargo/registry/a", 3'000);
    files.addFile("/home/me/.cargo/registry/b", 2'500);
    measure();
    ASSERT_TRUE(takeRemoved(items, std::vector<SelectedEntry>{{"/home/me/.cargo/registry/a", 3'000}}));
    EXPECT_EQ(items[0].def->id, "caches");
    EXPECT_EQ(items[18].def->id, "cargo");
    EXPECT_EQ(items[18].total(), 2'500);
    EXPECT_EQ(largestFirst(items)[0]->def->id, "cargo");
    EXPECT_EQ(largestFirst(items)[1]->def->id, "caches");
}

} // namespace
} // namespace corvane
