#include "apps/library_listings.h"

#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "core/scanner.h"
#include "platform/fake_host.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> names(std::span<const LibraryListing::Item> items)
{
    std::vector<std::string> result;
    for (const LibraryListing::Item &item : items)
        result.push_back(item.name);
    return result;
}

TEST(LibraryListing, FindsByTheWholeName)
{
    const LibraryListing listing({"b", "A", "ab", "a", "abc"});
    EXPECT_THAT(names(listing.items()), ElementsAre("A", "a", "ab", "abc", "b"));
    EXPECT_THAT(names(listing.named("a")), ElementsAre("A", "a"));
    EXPECT_THAT(names(listing.named("ab")), ElementsAre("ab"));
    EXPECT_THAT(names(listing.named("c")), IsEmpty());
    EXPECT_THAT(names(LibraryListing().named("a")), IsEmpty());
}

TEST(LibraryListing, FindsByTheBeginning)
{
    const LibraryListing listing({"com.a", "com.a.x", "com.a-x", "com.ab", "COM.A.y", "com"});
    EXPECT_THAT(names(listing.startingWith("com.a.")), ElementsAre("com.a.x", "COM.A.y"));
    EXPECT_THAT(names(listing.startingWith("com.b")), IsEmpty());
    EXPECT_EQ(listing.startingWith("").size(), 6U);
}

TEST(LibraryListing, FindsByTheEnd)
{
    const LibraryListing listing({"x.com.a", "a", "group.COM.a", "com.a", "xcom.a", "x.com.b"});
    std::vector<std::string> found;
    for (const LibraryListing::Item *item : listing.endingWith(".com.a"))
        found.push_back(item->name);
    EXPECT_THAT(found, ElementsAre("group.COM.a", "x.com.a"));
    EXPECT_THAT(listing.endingWith("com.c"), IsEmpty());
}

class LibraryListingsTest : public testing::Test {
protected:
    LibraryListingsTest() { fake.files.setHome("/Users/u"); }

    FakeHost fake;
    static constexpr std::size_t caches = 1;
};

TEST_F(LibraryListingsTest, EveryLocationIsListedOnce)
{
    for (const LeftoverLocation &location : leftoverLocations)
        fake.files.addFile("/Users/u/Library/" + std::string(location.folder) + "/item", 1);
    const LibraryListings listings = LibraryListings::read("/Users/u", fake.files);
    for (std::size_t i = 0; i < leftoverLocations.size(); ++i) {
        const std::string folder = "/Users/u/Library/" + std::string(leftoverLocations[i].folder);
        EXPECT_EQ(listings.listings[i].named("item").size(), 1U) << folder;
        EXPECT_EQ(listings.pathOf(i, listings.listings[i].named("item").front()), folder + "/item");
    }
    EXPECT_EQ(fake.log->linesStartingWith("list ").size(), leftoverLocations.size());
}

TEST_F(LibraryListingsTest, AFolderThatCannotBeListedIsEmpty)
{
    fake.files.addFile("/Users/u/Library/Caches/a", 1);
    fake.files.addFile("/Users/u/Library/Caches/b", 1);
    fake.files.failListing("/Users/u/Library/Caches", std::errc::io_error, 1);
    fake.files.addFile("/Users/u/Library/Logs", 1);
    const LibraryListings listings = LibraryListings::read("/Users/u", fake.files);
    for (const LibraryListing &listing : listings.listings)
        EXPECT_THAT(listing.items(), IsEmpty());
}

/// A file system in which every folder has no end.
class EndlessFolders final : public FileSystem {
public:
    using Observer = std::function<void(std::uint64_t number)>;
    explicit EndlessFolders(Observer observer) : m_observer(std::move(observer)) {}

    Expected<std::unique_ptr<OpenFolder>> openFolder(const std::string &path) override
    {
        if (!path.ends_with("/Caches"))
            return tl::unexpected(Error{"open", path, std::make_error_code(std::errc::no_such_file_or_directory), {}});
        return std::make_unique<Endless>(m_observer);
    }
    Expected<ItemFacts> facts(const std::string &) override { return ItemFacts{.type = EntryType::directory}; }
    bool exists(const std::string &) override { return false; }
    bool canOpen(const std::string &) override { return false; }
    Expected<std::string> realPath(const std::string &path) override { return path; }
    Expected<std::unique_ptr<HeldFolder>> holdFolder(const std::string &path) override
    {
        return tl::unexpected(Error{"open", path, std::make_error_code(std::errc::permission_denied), {}});
    }
    Expected<std::vector<std::string>> mountPoints() override { return std::vector<std::string>{"/"}; }
    std::string homeFolder() override { return "/home"; }

private:
    class Endless final : public OpenFolder {
    public:
        explicit Endless(const Observer &observer) : m_observer(observer) {}
        Expected<void> list(const EntrySink &sink) override
        {
            std::uint64_t number = 0;
            while (sink({.name = "x"}) == Listing::goOn)
                m_observer(++number);
            return tl::unexpected(Error{"list", {}, std::make_error_code(std::errc::operation_canceled), {}});
        }
        Expected<std::unique_ptr<OpenFolder>> openChild(const std::string &name) override
        {
            return tl::unexpected(Error{"open", name, std::make_error_code(std::errc::permission_denied), {}});
        }
        Expected<std::unique_ptr<OpenFolder>> openParent() override { return openChild(".."); }
        FolderIdentity identity() const override { return {}; }
        Time modified() const override { return distantPast; }

    private:
        const Observer &m_observer;
    };

    const Observer m_observer;
};

TEST(EndlessLibrary, AFolderWithoutEndIsEmpty)
{
    std::uint64_t listed = 0;
    EndlessFolders files([&](std::uint64_t number) { listed = number; });
    const LibraryListings listings = LibraryListings::read("/home", files);
    EXPECT_THAT(listings.listings[1].items(), IsEmpty());
    EXPECT_EQ(listed, Scanner::keptEntriesLimit);
}

TEST(EndlessLibrary, AStopIsNoticed)
{
    StopFlag stop = false;
    std::uint64_t listed = 0;
    EndlessFolders files([&](std::uint64_t number) {
        listed = number;
        stop = number >= 100;
    });
    const LibraryListings listings = LibraryListings::read("/home", files, stop);
    EXPECT_THAT(listings.listings[1].items(), IsEmpty());
    EXPECT_EQ(listed, 100U);
}

} // namespace
} // namespace corvane
