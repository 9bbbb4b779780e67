#include "apps/folder_listing.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "platform/fake_host.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> names(std::span<const FolderListing::Item> items)
{
    std::vector<std::string> result;
    for (const FolderListing::Item &item : items)
        result.push_back(item.name);
    return result;
}

TEST(FolderListing, FindsByTheWholeName)
{
    const FolderListing listing({"b", "A", "ab", "a", "abc"});
    EXPECT_THAT(names(listing.items()), ElementsAre("A", "a", "ab", "abc", "b"));
    EXPECT_THAT(names(listing.named("a")), ElementsAre("A", "a"));
    EXPECT_THAT(names(listing.named("ab")), ElementsAre("ab"));
    EXPECT_THAT(names(listing.named("c")), IsEmpty());
    EXPECT_THAT(names(FolderListing().named("a")), IsEmpty());
}

TEST(FolderListing, FindsByTheBeginning)
{
    const FolderListing listing({"com.a", "com.a.x", "com.a-x", "com.ab", "COM.A.y", "com"});
    EXPECT_THAT(names(listing.startingWith("com.a.")), ElementsAre("com.a.x", "COM.A.y"));
    EXPECT_THAT(names(listing.startingWith("com.b")), IsEmpty());
    EXPECT_EQ(listing.startingWith("").size(), 6U);
}

TEST(FolderListing, FindsByTheEnd)
{
    const FolderListing listing({"x.com.a", "a", "group.COM.a", "com.a", "xcom.a", "x.com.b"},
                                FolderListing::Ends::findable);
    std::vector<std::string> found;
    for (const FolderListing::Item *item : listing.endingWith(".com.a"))
        found.push_back(item->name);
    EXPECT_THAT(found, ElementsAre("group.COM.a", "x.com.a"));
    EXPECT_THAT(listing.endingWith("com.c"), IsEmpty());
}

TEST(NamesIn, AreThoseDirectlyInTheFolder)
{
    FakeHost fake;
    fake.files.addFile("/data/file", 1);
    fake.files.addFile("/data/folder/inside", 1);
    const Expected<std::vector<std::string>> names = namesIn("/data", fake.files);
    ASSERT_TRUE(names);
    EXPECT_THAT(*names, testing::UnorderedElementsAre("file", "folder"));
}

TEST(NamesIn, TellsAMissingFolderFromAnUnreadableOne)
{
    FakeHost fake;
    fake.files.addFolder("/data");
    fake.files.failOpening("/data");
    EXPECT_FALSE(namesIn("/data", fake.files).error().isMissing());
    EXPECT_TRUE(namesIn("/other", fake.files).error().isMissing());
}

} // namespace
} // namespace corvane
