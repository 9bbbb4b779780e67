#include "apps/library_listings.h"

#include <atomic>
#include <string>

#include <gmock/gmock.h>

#include "core/scanner.h"
#include "platform/fake_host.h"
#include "platform/made_up_folder.h"

namespace corvane {
namespace {

using testing::IsEmpty;

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
    for (const FolderListing &listing : listings.listings)
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
    for (const FolderListing &listing : listings.listings)
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
    for (const FolderListing &listing : listings.listings)
        EXPECT_THAT(listing.items(), IsEmpty());
    EXPECT_FALSE(isTooLong);
}

} // namespace
} // namespace corvane
