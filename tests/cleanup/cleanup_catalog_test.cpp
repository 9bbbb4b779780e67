#include "cleanup/cleanup_catalog.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <mutex>

#include <gtest/gtest.h>

#include "platform/fake_host.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

/// The real file system with a different home folder.
class HomeIn : public FileSystem {
public:
    explicit HomeIn(std::string home) : m_home(std::move(home)) {}

    Expected<std::unique_ptr<OpenFolder>> openFolder(const std::string &path) override
    {
        if (path == unlistable)
            return tl::unexpected(Error{"open", path, std::make_error_code(std::errc::operation_not_permitted), {}});
        return m_files.openFolder(path);
    }
    Expected<ItemFacts> facts(const std::string &path) override { return m_files.facts(path); }
    bool exists(const std::string &path) override { return m_files.exists(path); }
    bool canOpen(const std::string &path) override { return m_files.canOpen(path); }
    Expected<std::string> realPath(const std::string &path) override { return m_files.realPath(path); }
    Expected<std::unique_ptr<HeldFolder>> holdFolder(const std::string &path) override
    {
        return m_files.holdFolder(path);
    }
    Expected<std::vector<std::string>> mountPoints() override { return m_files.mountPoints(); }
    std::string homeFolder() override { return m_home; }
    SystemKind systemKind() override { return kind; }
    std::optional<OwnPlace> ownPlaceFor(std::string_view macPlace) override
    {
        const std::scoped_lock lock(m_lock); // places are measured concurrently
        askedPlaces.emplace_back(macPlace);
        return macPlace != movedPlace ? std::nullopt : std::optional(OwnPlace{ownPlace, m_home + "/.cache"});
    }

    std::string unlistable;
    SystemKind kind = SystemKind::mac;
    std::string movedPlace; ///< the one stored in `ownPlace`
    std::string ownPlace;
    std::vector<std::string> askedPlaces;

private:
    FileSystem &m_files = systemHost().files;
    std::string m_home;
    std::mutex m_lock;
};

class CleanupCatalogTest : public testing::Test {
protected:
    const CleanupDefinition &definition(std::string_view id) const
    {
        return *std::ranges::find(CleanupCatalog::definitions, id, &CleanupDefinition::id);
    }

    TemporaryFolder folder;
    HomeIn files{folder.path()};
};

TEST_F(CleanupCatalogTest, AMissingFolderIsAnEmptyItemThatIsAccessible)
{
    const CleanupItem item = CleanupCatalog::measure(definition("logs"), files);
    EXPECT_TRUE(item.entries.empty());
    EXPECT_EQ(item.total(), 0);
    EXPECT_TRUE(item.accessible);
    EXPECT_FALSE(item.exists);
}

TEST_F(CleanupCatalogTest, AnEmptyFolderExists)
{
    folder.makeFolder("Library/Logs");
    EXPECT_TRUE(CleanupCatalog::measure(definition("logs"), files).exists);
}

TEST_F(CleanupCatalogTest, AFolderThatCannotBeListedIsNotAccessible)
{
    folder.writeFile("Library/Logs/a.log", 8192);
    files.unlistable = folder.path() + "/Library/Logs";
    const CleanupItem item = CleanupCatalog::measure(definition("logs"), files);
    EXPECT_FALSE(item.accessible);
    EXPECT_TRUE(item.entries.empty());
}

TEST_F(CleanupCatalogTest, AFileInTheFoldersPlaceIsNotAccessible)
{
    folder.writeFile("Library/Logs", 8192);
    EXPECT_FALSE(CleanupCatalog::measure(definition("logs"), files).accessible);
}

TEST_F(CleanupCatalogTest, EntriesAreTheDirectChildrenLargestFirst)
{
    folder.writeFile("Library/Logs/small.log", 8192);
    folder.writeFile("Library/Logs/App/deep/large.log", 40'960);
    folder.writeFile("Library/Logs/.hidden", 20'480);
    const CleanupItem item = CleanupCatalog::measure(definition("logs"), files);
    const std::string logs = folder.path() + "/Library/Logs/";
    EXPECT_EQ(item.entries, (std::vector<CleanupEntry>{{logs + "App", 40'960, FileNode::Kind::directory},
                                                       {logs + ".hidden", 20'480, FileNode::Kind::file},
                                                       {logs + "small.log", 8192, FileNode::Kind::file}}));
    EXPECT_EQ(item.total(), 40'960 + 20'480 + 8192);
}

TEST_F(CleanupCatalogTest, IgnoredNamesAreNeverListedWhateverTheirSize)
{
    folder.writeFile("Library/Logs/.DS_Store", 40'960);
    folder.writeFile("Library/Logs/.localized", 40'960);
    folder.writeFile("Library/Logs/.ds_store", 8192);
    const CleanupItem item = CleanupCatalog::measure(definition("logs"), files);
    ASSERT_EQ(item.entries.size(), 1u);
    EXPECT_EQ(item.entries.front().path, folder.path() + "/Library/Logs/.ds_store");
}

TEST_F(CleanupCatalogTest, LinksEmptyFoldersAndEmptyFilesAreNotListed)
{
    folder.writeFile("target/big", 40'960);
    folder.makeFolder("Library/Logs/empty");
    folder.writeText("Library/Logs/nothing", "");
    folder.link("Library/Logs/link", folder.path() + "/target");
    EXPECT_TRUE(CleanupCatalog::measure(definition("logs"), files).entries.empty());
}

TEST_F(CleanupCatalogTest, AllEighteenAreThereLargestTotalFirst)
{
    folder.writeFile("Library/Logs/a", 8192);
    folder.writeFile("Downloads/b", 40'960);
    folder.writeFile(".npm/_cacache/c", 20'480);
    const auto items = CleanupCatalog::measureAll(files);
    ASSERT_EQ(items.size(), 18u);
    EXPECT_EQ(items[0].def->id, "downloads");
    EXPECT_EQ(items[1].def->id, "npm");
    EXPECT_EQ(items[2].def->id, "logs");
    EXPECT_TRUE(std::ranges::is_sorted(items, std::ranges::greater(), &CleanupItem::total));
    for (const CleanupDefinition &row : CleanupCatalog::definitions)
        EXPECT_EQ(std::ranges::count(items, &row, &CleanupItem::def), 1) << row.id;
}

TEST_F(CleanupCatalogTest, OnALinuxSystemItsOwnPlaceIsMeasuredWhateverTheHomeHolds)
{
    files.kind = SystemKind::linuxSystem;
    files.movedPlace = "Library/Logs";
    files.ownPlace = folder / "elsewhere/logs";
    folder.writeFile("elsewhere/logs/a.log", 8192);
    folder.makeFolder("Library/Logs"); // a macOS path on another system
    const CleanupItem item = CleanupCatalog::measure(definition("logs"), files);
    EXPECT_EQ(item.entries, (std::vector<CleanupEntry>{{folder / "elsewhere/logs/a.log", 8192}}));
    EXPECT_EQ(item.path, folder / "elsewhere/logs");
    EXPECT_TRUE(item.exists);
    EXPECT_EQ(std::ranges::count(files.askedPlaces, "Library/Logs"), 1);
}

TEST_F(CleanupCatalogTest, OnAMacTheFolderInTheHomeIsMeasured)
{
    files.movedPlace = "Library/Logs";
    files.ownPlace = folder / "elsewhere/logs";
    folder.writeFile("elsewhere/logs/a.log", 8192);
    folder.writeFile("Library/Logs/b.log", 4096);
    const CleanupItem item = CleanupCatalog::measure(definition("logs"), files);
    EXPECT_EQ(item.entries, (std::vector<CleanupEntry>{{folder / "Library/Logs/b.log", 4096}}));
    EXPECT_EQ(item.path, folder / "Library/Logs");
}

TEST_F(CleanupCatalogTest, AFolderThatIsMissingIsNamedAllTheSame)
{
    const CleanupItem item = CleanupCatalog::measure(definition("logs"), files);
    EXPECT_TRUE(item.entries.empty());
    EXPECT_TRUE(item.accessible);
    EXPECT_FALSE(item.exists);
    EXPECT_EQ(item.path, folder / "Library/Logs");
}

TEST_F(CleanupCatalogTest, OfAPlaceThatIsRefusedNothingIsMeasuredOrNamed)
{
    files.kind = SystemKind::linuxSystem;
    files.movedPlace = "Library/Caches";
    files.ownPlace = folder / "Documents";
    folder.writeFile("Documents/thesis", 8192);
    const CleanupItem item = CleanupCatalog::measure(definition("caches"), files);
    EXPECT_TRUE(item.entries.empty());
    EXPECT_TRUE(item.accessible);
    EXPECT_EQ(item.path, "");
}

TEST_F(CleanupCatalogTest, AnOwnPlaceThatCannotBeListedIsNotAccessible)
{
    files.kind = SystemKind::linuxSystem;
    files.movedPlace = "Library/Logs";
    files.ownPlace = folder / "elsewhere/logs";
    folder.makeFolder("elsewhere/logs");
    files.unlistable = folder / "elsewhere/logs";
    EXPECT_FALSE(CleanupCatalog::measure(definition("logs"), files).accessible);
}

TEST_F(CleanupCatalogTest, EntriesOfEqualSizeKeepTheOrderOfTheListing)
{
    FakeHost fake;
    fake.files.setHome("/home/u");
    for (const char *const name : {"c", "a", "b"})
        fake.files.addFile(std::string("/home/u/Library/Logs/") + name, 4096);
    std::vector<std::string> names;
    for (const CleanupEntry &entry : CleanupCatalog::measure(definition("logs"), fake.files).entries)
        names.push_back(entry.path);
    EXPECT_EQ(names,
              (std::vector<std::string>{"/home/u/Library/Logs/c", "/home/u/Library/Logs/a", "/home/u/Library/Logs/b"}));
}

TEST_F(CleanupCatalogTest, AListingThatFailsHalfwayIsNotAccessible)
{
    FakeHost fake;
    fake.files.setHome("/home/u");
    fake.files.addFile("/home/u/Library/Logs/a", 4096);
    fake.files.addFile("/home/u/Library/Logs/b", 4096);
    fake.files.failListing("/home/u/Library/Logs", std::errc::io_error, 1);
    const CleanupItem item = CleanupCatalog::measure(definition("logs"), fake.files);
    EXPECT_FALSE(item.accessible);
    EXPECT_TRUE(item.entries.empty());
}

TEST(CleanupOwner, IsKnownOfAFolderThatCannotBeListedAndBelongsToAnother)
{
    constexpr const char *caches = "/home/u/.gradle/caches";
    const auto ownerOf = [&](const std::string &owner, SystemKind kind) {
        FakeHost fake;
        fake.files.setHome("/home/u");
        fake.files.setSystemKind(kind);
        fake.files.addFolder(caches);
        fake.files.failOpening(caches);
        fake.files.setOwner("/home/u", "u");
        fake.files.setOwner(caches, owner);
        const auto row = std::ranges::find(CleanupCatalog::definitions, "gradlecaches", &CleanupDefinition::id);
        const CleanupItem item = CleanupCatalog::measure(*row, fake.files);
        EXPECT_FALSE(item.accessible);
        return item.owner;
    };
    EXPECT_EQ(ownerOf("root", SystemKind::linuxSystem), "Belongs to root");
    EXPECT_EQ(ownerOf("u", SystemKind::linuxSystem), "");
    EXPECT_EQ(ownerOf("root", SystemKind::mac), "");
}

TEST(CleanupNames, AreThoseOfTheCases)
{
    EXPECT_EQ(rawValue(CleanupRisk::safe), "safe");
    EXPECT_EQ(rawValue(CleanupRisk::review), "review");
    std::vector<std::string_view> groups;
    for (const CleanupGroup group : allCleanupGroups)
        groups.push_back(rawValue(group));
    EXPECT_EQ(groups, (std::vector<std::string_view>{"system", "developer", "personal"}));
}

TEST(CleanupNames, IgnoredAreTheTwoThatFileManagersLeaveBehind)
{
    EXPECT_EQ(CleanupCatalog::ignoredNames, (std::array<std::string_view, 2>{".DS_Store", ".localized"}));
}

} // namespace
} // namespace corvane
