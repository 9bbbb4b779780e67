#include "platform/linux/disk_name.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(DiskName, IsNeverEmpty)
{
    ASSERT_TRUE(nameOfDisk().has_value());
    EXPECT_FALSE(nameOfDisk()->empty());
}

TEST(DiskName, AFieldOfTheReleaseFileIsReadWithoutItsQuotes)
{
    const std::string text =
        "PRETTY_NAME=\"Debian GNU/Linux 12 (bookworm)\"\nNAME='Debian GNU/Linux'\nID=debian\nEMPTY=\n";
    EXPECT_EQ(releaseField(text, "NAME"), "Debian GNU/Linux");
    EXPECT_EQ(releaseField(text, "ID"), "debian");
    EXPECT_EQ(releaseField(text, "EMPTY"), std::nullopt);
    EXPECT_EQ(releaseField(text, "VERSION"), std::nullopt);
    EXPECT_EQ(releaseField("", "NAME"), std::nullopt);
}

TEST(DiskName, ALabelsBlanksAreWrittenAsUdevWritesThem)
{
    EXPECT_EQ(unescapedLabel("My\\x20Disk"), "My Disk");
    EXPECT_EQ(unescapedLabel("plain"), "plain");
    EXPECT_EQ(unescapedLabel("odd\\x2"), "odd\\x2");
    EXPECT_EQ(unescapedLabel("odd\\xzz"), "odd\\xzz");
}

} // namespace
} // namespace corvane
