#include "disk/disk_accountant.h"

#include <iterator>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "platform/fake_host.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

// The texts are part of the product: every change must be intentional.
TEST(LocationTable, IsExactlyThis)
{
    const DiskAccountant::Location expected[] = {
        {"/Applications",
         "Applications",
         "Apps installed for everyone on this Mac. Remove ones you no longer use from Large Files or Finder.",
         "app.badge",
         {0.24, 0.52, 0.98}},
        {"/Library",
         "System-wide Library",
         "Shared app data, iOS Simulator runtimes, fonts, audio plug-ins and printer drivers.",
         "building.columns",
         {0.62, 0.36, 0.96}},
        {"/opt",
         "Homebrew (/opt)",
         "Homebrew packages on Apple Silicon. Tip: `brew cleanup` removes old versions.",
         "mug",
         {0.98, 0.56, 0.22}},
        {"/usr/local", "/usr/local", "Command-line tools and Homebrew on Intel Macs.", "terminal", {0.9, 0.68, 0.16}},
        {"/Users/Shared",
         "Shared Folder",
         "Files shared between all users of this Mac.",
         "person.2",
         {0.13, 0.68, 0.74}},
    };
    ASSERT_EQ(DiskAccountant::locations.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const DiskAccountant::Location &row = DiskAccountant::locations[i];
        EXPECT_EQ(row.path, expected[i].path);
        EXPECT_EQ(row.title, expected[i].title) << row.path;
        EXPECT_EQ(row.detail, expected[i].detail) << row.path;
        EXPECT_EQ(row.symbol, expected[i].symbol) << row.path;
        EXPECT_EQ(row.color, expected[i].color) << row.path;
    }
}

TEST(MeasuringALocation, GivesTheSumAndTheThreeLargestChildren)
{
    TemporaryFolder folder;
    folder.writeFile("a", 8192);
    folder.writeFile("b/inside", 40'960);
    folder.writeFile("c", 20'480);
    folder.writeFile("d", 12'288);
    folder.makeFolder("empty");
    const auto [size, children] = DiskAccountant::measure(folder.path(), std::nullopt);
    EXPECT_EQ(size, 8192 + 40'960 + 20'480 + 12'288);
    EXPECT_EQ(children, (std::vector<NamedSize>{{"b", 40'960}, {"c", 20'480}, {"d", 12'288}}));
}

TEST(MeasuringALocation, LeavesOutTheChildThatIsOrHoldsTheScannedFolder)
{
    TemporaryFolder folder;
    folder.writeFile("top/scanned/file", 40'960);
    folder.writeFile("top/other", 40'960);
    folder.writeFile("topping", 8192);
    EXPECT_EQ(DiskAccountant::measure(folder.path(), folder.path() + "/top/scanned").first, 8192);
    EXPECT_EQ(DiskAccountant::measure(folder.path(), folder.path() + "/top").first, 8192);
    EXPECT_EQ(DiskAccountant::measure(folder.path(), folder.path() + "/to").first, 8192 + 2 * 40'960);
}

TEST(MeasuringALocation, LeavesItOutOfTheWholeDiskToo)
{
    FakeHost fake;
    fake.files.addFile("/opt/a", 8192);
    fake.files.addFile("/usr/b", 4096);
    EXPECT_EQ(DiskAccountant::measure("/", "/opt", fake.files).first, 4096);
    EXPECT_EQ(DiskAccountant::measure("/", "/opt/deep", fake.files).first, 4096);
}

TEST(MeasuringALocation, AFileIsMeasuredAsAWholeWithoutChildren)
{
    TemporaryFolder folder;
    folder.writeFile("file", 8192);
    const auto [size, children] = DiskAccountant::measure(folder.path() + "/file", std::nullopt);
    EXPECT_EQ(size, 8192);
    EXPECT_TRUE(children.empty());
}

TEST(MeasuringALocation, OneThatCannotBeListedIsMeasuredAsAWholeWithoutChildren)
{
    FakeHost fake;
    fake.files.addFile("/Library/a", 8192);
    fake.files.failListing("/Library", std::errc::io_error, 1);
    const auto [size, children] = DiskAccountant::measure("/Library", std::nullopt, fake.files);
    // Entries listed before the failure still count.
    EXPECT_EQ(size, 8192);
    EXPECT_TRUE(children.empty());
}

TEST(MeasuringALocation, ChildrenOfEqualSizeKeepTheOrderOfTheListing)
{
    FakeHost fake;
    for (const char *const path : {"/opt/c", "/opt/a", "/opt/b"})
        fake.files.addFile(path, 4096);
    EXPECT_EQ(DiskAccountant::measure("/opt", std::nullopt, fake.files).second,
              (std::vector<NamedSize>{{"c", 4096}, {"a", 4096}, {"b", 4096}}));
}

} // namespace
} // namespace corvane
