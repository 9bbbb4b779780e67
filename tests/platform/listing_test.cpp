// Compares each system's own implementation of listing a folder with readdir and fstatat.

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "platform/file_descriptor.h"
#include "platform/host.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

struct Facts {
    EntryType type = EntryType::file;
    std::int64_t allocated = 0;
    std::int64_t modified = 0; // seconds since 1970
    std::uint32_t links = 1;
    std::uint64_t inode = 0;

    friend bool operator==(const Facts &, const Facts &) = default;
    friend std::ostream &operator<<(std::ostream &out, const Facts &facts)
    {
        return out << "type " << static_cast<int>(facts.type) << ", " << facts.allocated << " bytes, modified "
                   << facts.modified << ", " << facts.links << " names, number " << facts.inode;
    }
};

using Listed = std::map<std::string, Facts>;

/// For items other than files, only the kind is listed.
Listed listed(const std::string &path)
{
    Listed entries;
    const auto folder = systemHost().files.openFolder(path);
    EXPECT_TRUE(folder) << path;
    if (!folder)
        return entries;
    const Expected<void> done = (*folder)->list([&](const DirectoryEntry &entry) {
        Facts facts{.type = entry.type};
        if (entry.type == EntryType::file)
            facts = {entry.type, entry.allocated, entry.modified.time_since_epoch().count(), entry.links, entry.inode};
        EXPECT_TRUE(entries.emplace(entry.name, facts).second) << entry.name;
    });
    EXPECT_TRUE(done) << path;
    return entries;
}

Listed readOneByOne(const std::string &path)
{
    Listed entries;
    const std::unique_ptr<DIR, int (*)(DIR *)> stream(::opendir(path.c_str()), ::closedir);
    EXPECT_TRUE(stream) << path;
    if (!stream)
        return entries;
    while (const dirent *const entry = ::readdir(stream.get())) {
        const std::string name(static_cast<const char *>(entry->d_name));
        struct stat status {};
        if (name == "." || name == ".." ||
            ::fstatat(::dirfd(stream.get()), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
            continue;
        Facts facts{.type = S_ISDIR(status.st_mode)   ? EntryType::directory
                            : S_ISLNK(status.st_mode) ? EntryType::symbolicLink
                                                      : EntryType::file};
        if (facts.type == EntryType::file)
            facts = {facts.type, status.st_blocks * 512, status.st_mtime, static_cast<std::uint32_t>(status.st_nlink),
                     status.st_ino};
        entries.emplace(name, facts);
    }
    return entries;
}

/// Compares a folder recursively; returns the number of entries compared.
std::size_t compareTree(const std::string &path)
{
    const Listed entries = listed(path);
    EXPECT_EQ(entries, readOneByOne(path)) << path;
    std::size_t count = entries.size();
    for (const auto &[name, facts] : entries) {
        if (facts.type == EntryType::directory)
            count += compareTree(path + "/" + name);
    }
    return count;
}

TEST(Listing, EveryKindOfItemIsListedWithItsFacts)
{
    const TemporaryFolder folder;
    const std::string empty = folder.writeFile("empty", 0);
    static_cast<void>(folder.writeFile("one byte", 1));
    static_cast<void>(folder.writeFile("Movies/film.mov", 3'000'000));
    static_cast<void>(folder.writeSparse("sparse.img", 500'000'000));
    static_cast<void>(folder.hardLink("Movies/same film.mov", "Movies/film.mov"));
    static_cast<void>(folder.link("link", "Movies"));
    static_cast<void>(folder.link("dangling", "nowhere"));
    static_cast<void>(folder.makeFolder("empty folder"));
    static_cast<void>(folder.writeText("Tool.app/Contents/Info.plist", "<plist/>"));
    static_cast<void>(folder.writeText(".hidden", "dot"));
    static_cast<void>(folder.writeText("line\nbreak \"quoted\" \\ back", "odd"));
    static_cast<void>(folder.writeText("\xC3\xA9t\xC3\xA9 \xF0\x9F\x98\x80 \xD7\x90", "text of several scripts"));
    static_cast<void>(folder.writeText(std::string(255, 'n'), "the longest name"));
    folder.setModified("one byte", 86'400);
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(compareTree(folder.path()), 17U);
}

TEST(Listing, ItemsOfSeveralCallsAreEachListedOnce)
{
    const TemporaryFolder folder;
    for (int i = 0; i < 5'000; ++i)
        static_cast<void>(folder.writeText("file number " + std::to_string(i) + std::string(40, '.'), "x"));
    EXPECT_EQ(compareTree(folder.path()), 5'000U);
}

TEST(Listing, CanBeRepeatedOnTheSameOpenFolder)
{
    const TemporaryFolder folder;
    for (int i = 0; i < 300; ++i)
        static_cast<void>(folder.writeText(std::to_string(i), "x"));
    const auto open = systemHost().files.openFolder(folder.path());
    ASSERT_TRUE(open);
    for (int round = 0; round < 2; ++round) {
        std::size_t count = 0;
        ASSERT_TRUE((*open)->list([&](const DirectoryEntry &) { ++count; }));
        EXPECT_EQ(count, 300U) << round;
    }
}

TEST(Listing, EndsWhereTheSinkStopsIt)
{
    const TemporaryFolder folder;
    for (int i = 0; i < 10; ++i)
        static_cast<void>(folder.writeText(std::to_string(i), "x"));
    const auto open = systemHost().files.openFolder(folder.path());
    ASSERT_TRUE(open);
    int count = 0;
    const Expected<void> done = (*open)->list(
        [&](const DirectoryEntry &) { return ++count == 3 ? corvane::Listing::stop : corvane::Listing::goOn; });
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().code, std::errc::operation_canceled);
    EXPECT_EQ(count, 3);
}

TEST(Listing, TheSystemsProgramsAreListedWithTheirFacts)
{
    EXPECT_GT(compareTree("/usr/bin"), 100U);
}

} // namespace
} // namespace corvane
