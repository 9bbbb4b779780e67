#include "apps/library_listings.h"

#include <atomic>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "core/scanner.h"
#include "platform/fake_host.h"
#include "platform/made_up_folder.h"

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
    const LibraryListing listing({"x.com.a", "a", "group.COM.a", "com.a", "xcom.a", "x.com.b"},
                                 LibraryListing::Ends::findable);
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

TEST(EndlessLibrary, FoldersWithoutEndAreEmpty)
{
    std::atomic<bool> isTooLong = false;
    MadeUpFolder files([&](std::uint64_t number) {
        if (number > Scanner::keptEntriesLimit)
            isTooLong = true;
        return DirectoryEntry{.name = "x"};
    });
    const LibraryListings listings = LibraryListings::read("/home", files);
    for (const LibraryListing &listing : listings.listings)
        EXPECT_THAT(listing.items(), IsEmpty());
    EXPECT_FALSE(isTooLong);
}

TEST(EndlessLibrary, AStopIsNoticed)
{
    StopFlag stop = false;
    std::atomic<bool> isTooLong = false;
    MadeUpFolder files([&](std::uint64_t number) {
        if (number == 100)
            stop = true;
        if (number > 100)
            isTooLong = true;
        return DirectoryEntry{.name = "x"};
    });
    const LibraryListings listings = LibraryListings::read("/home", files, stop);
    for (const LibraryListing &listing : listings.listings)
        EXPECT_THAT(listing.items(), IsEmpty());
    EXPECT_FALSE(isTooLong);
}

} // namespace
} // namespace corvane
