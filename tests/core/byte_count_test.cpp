#include "core/byte_count.h"

#include <limits>

#include <gtest/gtest.h>

namespace corvane {
namespace {

struct Row {
    std::int64_t bytes;
    const char *text;
};

class ByteCountTable : public testing::TestWithParam<Row> {};

TEST_P(ByteCountTable, IsWrittenAs)
{
    EXPECT_EQ(formatByteCount(GetParam().bytes), GetParam().text) << GetParam().bytes;
}

// The figures that the system's own formatter shows for files.
INSTANTIATE_TEST_SUITE_P(SystemFigures, ByteCountTable,
                         testing::Values(Row{0, "Zero KB"}, Row{1, "1 byte"}, Row{999, "999 bytes"}, Row{1000, "1 KB"},
                                         Row{1023, "1 KB"}, Row{4096, "4 KB"}, Row{11999, "12 KB"},
                                         Row{900000, "900 KB"}, Row{999999, "1 MB"}, Row{1500000, "1.5 MB"},
                                         Row{12345678, "12.3 MB"}, Row{123456789, "123.5 MB"},
                                         Row{999900000, "999.9 MB"}, Row{1234567898, "1.23 GB"},
                                         Row{12345678987, "12.35 GB"}, Row{494384795648, "494.38 GB"},
                                         Row{2000398934016, "2 TB"}));

// The last count of a unit, and the next one.
INSTANTIATE_TEST_SUITE_P(Promotion, ByteCountTable,
                         testing::Values(Row{999'499, "999 KB"}, Row{999'500, "1 MB"},           //
                                         Row{999'949'999, "999.9 MB"}, Row{999'950'000, "1 GB"}, //
                                         Row{999'994'999'999, "999.99 GB"}, Row{999'995'000'000, "1 TB"},
                                         Row{999'994'999'999'999, "999.99 TB"}, Row{999'995'000'000'000, "1 PB"},
                                         Row{999'994'999'999'999'999, "999.99 PB"},
                                         Row{999'995'000'000'000'000, "1 EB"}));

INSTANTIATE_TEST_SUITE_P(TrailingZeros, ByteCountTable,
                         testing::Values(Row{2, "2 bytes"}, Row{1'000'000, "1 MB"}, Row{10'000'000, "10 MB"},
                                         Row{2'040'000, "2 MB"}, Row{1'000'000'000, "1 GB"},
                                         Row{1'500'000'000, "1.5 GB"}, Row{1'050'000'000, "1.05 GB"},
                                         Row{100'000'000'000, "100 GB"}, Row{1'500'000'000'000, "1.5 TB"}));

TEST(ByteCount, NegativeCountIsWrittenAsZero)
{
    EXPECT_EQ(formatByteCount(-1), "Zero KB");
    EXPECT_EQ(formatByteCount(std::numeric_limits<std::int64_t>::min()), "Zero KB");
}

TEST(ByteCount, LargestCountIsWrittenInItsUnit)
{
    EXPECT_EQ(formatByteCount(std::numeric_limits<std::int64_t>::max()), "9.22 EB");
}

TEST(Count, IsGroupedInThousands)
{
    EXPECT_EQ(formatCount(0), "0");
    EXPECT_EQ(formatCount(999), "999");
    EXPECT_EQ(formatCount(1'000), "1,000");
    EXPECT_EQ(formatCount(1'234'567), "1,234,567");
    EXPECT_EQ(formatCount(-1'000), "-1,000");
    EXPECT_EQ(formatCount(-100), "-100");
}

} // namespace
} // namespace corvane
