#include "platform/fake_file_system.h"

#include <gmock/gmock.h>

namespace corvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> namesIn(OpenFolder &folder)
{
    std::vector<std::string> names;
    EXPECT_TRUE(folder.list([&](const DirectoryEntry &entry) { names.emplace_back(entry.name); }).has_value());
    return names;
}

TEST(FakeFileSystem, ReadsTextsUpToTheLimit)
{
    FakeFileSystem files;
    files.addText("/a/text", "words", 40);
    files.addLink("/a/link", "text");
    EXPECT_EQ(files.readFile("/a/link", 5), "words");
    EXPECT_EQ(files.facts("/a/text")->allocated, 40);
    EXPECT_EQ(files.readFile("/a/text", 4).error().code, std::errc::file_too_large);
    EXPECT_EQ(files.readFile("/a", 5).error().code, std::errc::not_supported);
    EXPECT_TRUE(files.readFile("/a/gone", 5).error().isMissing());
    files.failOpening("/a/text");
    EXPECT_EQ(files.readFile("/a/text", 5).error().code, std::errc::permission_denied);
}

TEST(FakeFileSystem, ListsItemsInTheOrderOfMaking)
{
    FakeFileSystem files;
    files.addFile("/a/z", 5, Time(std::chrono::seconds(7)));
    files.addFolder("/a/Notes.APP", Time(std::chrono::seconds(9)));
    files.addLink("/a/link", "/a/z");
    const auto folder = files.openFolder("/a");
    ASSERT_TRUE(folder.has_value());

    struct Row {
        std::string name;
        EntryType type;
        bool isPackage;
        std::int64_t allocated;
        Time modified;
        bool operator==(const Row &) const = default;
    };
    std::vector<Row> rows;
    EXPECT_TRUE((*folder)->list([&](const DirectoryEntry &e) {
        rows.push_back({std::string(e.name), e.type, e.isPackage, e.allocated, e.modified});
    }));
    EXPECT_THAT(rows, ElementsAre(Row{"z", EntryType::file, false, 5, Time(std::chrono::seconds(7))},
                                  Row{"Notes.APP", EntryType::directory, true, 0, distantPast},
                                  Row{"link", EntryType::symbolicLink, false, 0, distantPast}));
}

TEST(FakeFileSystem, RecordsEachCallInOrder)
{
    FakeFileSystem files;
    files.addFile("/a/b/c", 1);
    const auto a = files.openFolder("/a");
    const auto b = (*a)->openChild("b");
    namesIn(**b);
    EXPECT_EQ((*(*b)->openParent())->identity(), (*a)->identity());
    EXPECT_TRUE(files.exists("/a"));
    EXPECT_TRUE(files.facts("/a/b/c"));
    EXPECT_THAT(files.log()->lines(), ElementsAre("openFolder /a", "openChild /a/b", "list /a/b", "openParent /a/b",
                                                  "exists /a", "facts /a/b/c"));
    EXPECT_THAT(files.log()->linesStartingWith("list "), ElementsAre("list /a/b"));
}

TEST(FakeFileSystem, FollowsLinksOnTheWayButKeepsTheLastWhereAsked)
{
    FakeFileSystem files;
    files.addFile("/real/folder/file", 3);
    files.addLink("/short", "real/folder");
    files.addLink("/dangling", "/nowhere");
    files.addLink("/loop", "/loop");
    EXPECT_EQ(files.realPath("/short/../folder/./file").value_or("failed"), "/real/folder/file");
    EXPECT_EQ(files.facts("/short")->type, EntryType::symbolicLink);
    EXPECT_TRUE(files.exists("/short"));
    EXPECT_FALSE(files.exists("/dangling"));
    EXPECT_TRUE(files.facts("/dangling"));
    EXPECT_EQ(files.realPath("/loop").error().code, std::errc::too_many_symbolic_link_levels);
    EXPECT_EQ((*files.openFolder("/"))->openChild("short").error().code, std::errc::too_many_symbolic_link_levels);
}

TEST(FakeFileSystem, FolderThatCannotBeOpenedFailsOnBothWays)
{
    FakeFileSystem files;
    files.addFile("/a/secret/f", 1);
    files.failOpening("/a/secret");
    EXPECT_EQ(files.openFolder("/a/secret").error().code, std::errc::permission_denied);
    EXPECT_EQ((*files.openFolder("/a"))->openChild("secret").error().code, std::errc::permission_denied);
    EXPECT_FALSE(files.canOpen("/a/secret"));
    EXPECT_TRUE(files.facts("/a/secret"));
}

TEST(FakeFileSystem, ListingMayFailHalfway)
{
    FakeFileSystem files;
    files.addFile("/a/1", 1);
    files.addFile("/a/2", 1);
    files.failListing("/a", std::errc::io_error, 1);
    const auto folder = files.openFolder("/a");
    std::vector<std::string> names;
    const auto result = (*folder)->list([&](const DirectoryEntry &e) { names.emplace_back(e.name); });
    EXPECT_EQ(result.error().code, std::errc::io_error);
    EXPECT_THAT(names, ElementsAre("1"));
}

TEST(FakeFileSystem, FolderWithoutFactsIsListedAsAFileOfNoBytes)
{
    FakeFileSystem files;
    files.addFolder("/a/odd.app");
    files.failFacts("/a/odd.app");
    EXPECT_TRUE((*files.openFolder("/a"))->list([](const DirectoryEntry &e) {
        EXPECT_EQ(e.type, EntryType::file);
        EXPECT_FALSE(e.isPackage);
        EXPECT_EQ(e.allocated, 0);
    }));
    EXPECT_EQ(files.facts("/a/odd.app").error().code, std::errc::io_error);
}

TEST(FakeFileSystem, VanishedItemIsListedButNotFound)
{
    FakeFileSystem files;
    files.addFolder("/a/gone");
    files.makeVanish("/a/gone");
    const auto folder = files.openFolder("/a");
    EXPECT_THAT(namesIn(**folder), ElementsAre("gone"));
    EXPECT_EQ((*folder)->openChild("gone").error().code, std::errc::no_such_file_or_directory);
    EXPECT_FALSE(files.facts("/a/gone"));
}

Expected<void> remove(FakeFileSystem &files, const std::string &folder, const std::string &name)
{
    const std::unique_ptr<HeldFolder> held = std::move(*files.holdFolder(folder));
    return held->removeItem(name, held->facts(name)->identity);
}

TEST(FakeFileSystem, RemovingALinkKeepsItsTarget)
{
    FakeFileSystem files;
    files.addFile("/a/f", 1);
    files.addLink("/l", "/a");
    EXPECT_TRUE(remove(files, "/", "l"));
    EXPECT_FALSE(files.has("/l"));
    EXPECT_TRUE(files.has("/a/f"));
}

TEST(FakeFileSystem, RefusedRemovalChangesNothing)
{
    FakeFileSystem files;
    files.addFile("/a/f", 1);
    files.failRemoval("/a/f", std::errc::permission_denied, "You may not.");
    EXPECT_EQ(remove(files, "/a", "f").error().description(), "You may not.");
    EXPECT_TRUE(files.has("/a/f"));
}

TEST(FakeFileSystem, OpenFolderMovesAlongWithItsItem)
{
    FakeFileSystem files;
    files.addFolder("/a/b");
    files.addFolder("/c");
    const auto b = files.openFolder("/a/b");
    files.move("/a/b", "/c/d");
    EXPECT_EQ((*(*b)->openParent())->identity(), (*files.openFolder("/c"))->identity());
}

TEST(FakeFileSystem, TestMayChangeTheTreeInTheMiddleOfACall)
{
    FakeFileSystem files;
    files.addFile("/a/f", 1);
    files.log()->observe([&](const std::string &line) {
        if (line == "list /a")
            files.take("/a/f");
    });
    EXPECT_THAT(namesIn(**files.openFolder("/a")), IsEmpty());
}

TEST(FakeFileSystem, MistakeInATestsTreeThrows)
{
    FakeFileSystem files;
    files.addFile("/a", 1);
    EXPECT_THROW(files.addFile("/a/b", 1), std::logic_error);
    EXPECT_THROW(files.addFile("/a", 1), std::logic_error);
    EXPECT_THROW(files.take("/none"), std::logic_error);
    EXPECT_THROW(files.addFile("relative", 1), std::logic_error);
}

} // namespace
} // namespace corvane
