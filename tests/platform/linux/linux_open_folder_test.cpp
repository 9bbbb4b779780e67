#include <set>
#include <thread>

#include <sys/stat.h>

#include <gmock/gmock.h>

#include "platform/linux/linux_file_system_fixture.h"

namespace corvane {
namespace {

using testing::ElementsAre;

using LinuxOpenFolderTest = LinuxFileSystemTest;

TEST_F(LinuxOpenFolderTest, TellsFilesFoldersAndLinksApart)
{
    temporary.writeFile("file", 10);
    temporary.makeFolder("folder");
    temporary.link("link", "file");
    temporary.link("folder link", "folder");
    temporary.link("dangling", "nowhere");
    ASSERT_EQ(::mkfifo((temporary / "pipe").c_str(), 0600), 0);

    const auto entries = entriesOf(*open(temporary.path()));
    ASSERT_EQ(entries.size(), 6U);
    EXPECT_EQ(entries.at("file").type, EntryType::file);
    EXPECT_EQ(entries.at("folder").type, EntryType::directory);
    EXPECT_EQ(entries.at("link").type, EntryType::symbolicLink);
    EXPECT_EQ(entries.at("folder link").type, EntryType::symbolicLink);
    EXPECT_EQ(entries.at("dangling").type, EntryType::symbolicLink);
    EXPECT_EQ(entries.at("pipe").type, EntryType::file);
    EXPECT_EQ(entries.at("pipe").allocated, 0);
}

TEST_F(LinuxOpenFolderTest, SizesAreAllocatedBytesNeverLengths)
{
    temporary.writeFile("large", 3'000'000);
    temporary.writeSparse("sparse", 1'000'000'000);
    temporary.writeText("one byte", "x");
    temporary.writeText("empty", "");

    const auto entries = entriesOf(*open(temporary.path()));
    EXPECT_EQ(entries.at("large").allocated, temporary.allocated("large"));
    EXPECT_GE(entries.at("large").allocated, 3'000'000);
    EXPECT_EQ(entries.at("sparse").allocated, 0);
    EXPECT_EQ(entries.at("one byte").allocated, temporary.allocated("one byte"));
    EXPECT_EQ(entries.at("empty").allocated, 0);
}

TEST_F(LinuxOpenFolderTest, DatesAreWholeSecondsEvenBefore1970)
{
    temporary.writeText("file", "x");
    temporary.writeText("old", "x");
    temporary.makeFolder("folder");
    temporary.setModified("file", 1'700'000'000);
    temporary.setModified("old", -1'000);
    temporary.setModified("folder", 1'600'000'000);

    const auto folder = open(temporary.path());
    const auto entries = entriesOf(*folder);
    EXPECT_EQ(entries.at("file").modified, Time(std::chrono::seconds(1'700'000'000)));
    EXPECT_EQ(entries.at("old").modified, Time(std::chrono::seconds(-1'000)));
    EXPECT_EQ((*folder->openChild("folder"))->modified(), Time(std::chrono::seconds(1'600'000'000)));
}

TEST_F(LinuxOpenFolderTest, FoldersWithAKnownExtensionArePackages)
{
    for (const char *name : {"Some.app", "SOME.APP", "plain", "with.dot", ".app", "trailing."})
        temporary.makeFolder(name);
    temporary.writeText("file.app", "not a folder");

    const auto entries = entriesOf(*open(temporary.path()));
    EXPECT_TRUE(entries.at("Some.app").isPackage);
    EXPECT_TRUE(entries.at("SOME.APP").isPackage);
    EXPECT_FALSE(entries.at("plain").isPackage);
    EXPECT_FALSE(entries.at("with.dot").isPackage);
    EXPECT_FALSE(entries.at(".app").isPackage);
    EXPECT_FALSE(entries.at("trailing.").isPackage);
    EXPECT_FALSE(entries.at("file.app").isPackage);
}

TEST_F(LinuxOpenFolderTest, NamesAreBytes)
{
    const std::string longest(255, 'n');
    const std::set<std::string> names{
        longest, "two\nlines", "\"quoted\" 'twice'", "\xF0\x9F\x98\x80 emoji", "not \xff\xfe text", " ", "-rf", "..."};
    for (const std::string &name : names)
        temporary.writeText(name, "x");
    EXPECT_EQ(namesIn(*open(temporary.path())), names);
}

TEST_F(LinuxOpenFolderTest, AFolderLargerThanOneBufferIsListedWhole)
{
    constexpr int count = 5'000; // of 100-byte names: several buffers
    for (int i = 0; i < count; ++i)
        temporary.link(std::to_string(i) + std::string(100, 'x'), "nowhere");
    EXPECT_EQ(entriesOf(*open(temporary.path())).size(), std::size_t{count});
}

TEST_F(LinuxOpenFolderTest, ListingTwiceGivesTheSameTwice)
{
    temporary.writeText("a", "x");
    temporary.makeFolder("b");
    const auto folder = open(temporary.path());
    EXPECT_THAT(namesIn(*folder), ElementsAre("a", "b"));
    EXPECT_THAT(namesIn(*folder), ElementsAre("a", "b"));
}

TEST_F(LinuxOpenFolderTest, ASinkMayListAnotherFolder)
{
    for (int i = 0; i < 50; ++i)
        temporary.makeFolder("folder" + std::to_string(i) + "/inner" + std::to_string(i));
    const auto folder = open(temporary.path());
    std::set<std::string> found;
    ASSERT_TRUE(folder->list([&](const DirectoryEntry &entry) {
        const std::string name(entry.name);
        found.merge(namesIn(**folder->openChild(name)));
        EXPECT_EQ(entry.name, name);
    }));
    EXPECT_EQ(found.size(), 50U);
}

TEST_F(LinuxOpenFolderTest, AFileThatVanishesWhileListedIsLeftOut)
{
    // Enough that the first buffer contains names of files that are deleted before they are processed.
    for (int i = 0; i < 200; ++i)
        temporary.writeText("file" + std::to_string(i), "x");
    int delivered = 0;
    ASSERT_TRUE(open(temporary.path())->list([&](const DirectoryEntry &) {
        if (++delivered > 1)
            return;
        for (int i = 0; i < 200; ++i)
            ::unlink((temporary / ("file" + std::to_string(i))).c_str());
    }));
    EXPECT_EQ(delivered, 1);
}

TEST_F(LinuxOpenFolderTest, AFolderDeletedWhileOpenIsEmpty)
{
    const std::string path = temporary.makeFolder("gone");
    const auto folder = open(path);
    ASSERT_EQ(::rmdir(path.c_str()), 0);
    EXPECT_THAT(namesIn(*folder), testing::IsEmpty());
}

TEST_F(LinuxOpenFolderTest, AChildIsNeverOpenedThroughALink)
{
    temporary.makeFolder("folder");
    temporary.link("link", "folder");
    temporary.writeText("file", "x");
    const auto folder = open(temporary.path());
    EXPECT_TRUE(folder->openChild("folder"));
    EXPECT_FALSE(folder->openChild("link"));
    EXPECT_FALSE(folder->openChild("file"));
    const auto missing = folder->openChild("missing");
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().code, std::errc::no_such_file_or_directory);
    EXPECT_EQ(missing.error().operation, "open");
}

TEST_F(LinuxOpenFolderTest, TheParentIsWhereTheFolderNowLies)
{
    temporary.makeFolder("a/child");
    temporary.makeFolder("b");
    const auto a = open(temporary / "a");
    const auto b = open(temporary / "b");
    const auto child = open(temporary / "a/child");
    EXPECT_EQ((*child->openParent())->identity(), a->identity());
    ASSERT_EQ(::rename((temporary / "a/child").c_str(), (temporary / "b/child").c_str()), 0);
    EXPECT_EQ((*child->openParent())->identity(), b->identity());
    EXPECT_NE(a->identity(), b->identity());
}

TEST_F(LinuxOpenFolderTest, SeveralThreadsMayOpenChildrenAtOnce)
{
    for (int i = 0; i < 20; ++i)
        temporary.makeFolder("folder" + std::to_string(i));
    const auto folder = open(temporary.path());
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&] {
            for (int i = 0; i < 20; ++i)
                EXPECT_TRUE(folder->openChild("folder" + std::to_string(i)));
        });
    }
    for (std::thread &thread : threads)
        thread.join();
}

} // namespace
} // namespace corvane
