#include "cli/argument_values.h"

#include <gtest/gtest.h>

namespace corvane {

namespace {

TEST(ArgumentValues, AreNumbersAndTypesOfFiles)
{
    EXPECT_EQ(byteCount("0"), 0);
    EXPECT_EQ(byteCount("9223372036854775807"), 9'223'372'036'854'775'807);
    EXPECT_EQ(byteCount("9223372036854775808"), std::nullopt);
    EXPECT_EQ(byteCount("-1"), std::nullopt);
    EXPECT_EQ(byteCount(""), std::nullopt);
    EXPECT_EQ(monthCount("12000"), 12'000);
    EXPECT_EQ(monthCount("12001"), std::nullopt);
    EXPECT_EQ(fileTypeNamed("diskImage"), FileType(FileType::diskImage));
    EXPECT_EQ(fileTypeNamed("small"), std::nullopt);
}

} // namespace

} // namespace corvane
