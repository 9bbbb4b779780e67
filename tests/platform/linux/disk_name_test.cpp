#include "platform/linux/disk_name.h"

#include <gtest/gtest.h>

#include "platform/host.h"

namespace corvane {
namespace {

TEST(DiskName, IsNeverEmpty)
{
    const auto name = nameOfDisk(systemHost().files);
    ASSERT_TRUE(name.has_value());
    EXPECT_FALSE(name->empty());
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
