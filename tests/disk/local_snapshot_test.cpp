#include "disk/local_snapshot.h"

#include <cstdlib>
#include <ctime>

#include <gtest/gtest.h>

namespace corvane {
namespace {

/// Names contain local time: the tests set the time zone.
class LocalSnapshotTest : public testing::Test {
protected:
    void SetUp() override { setZone("UTC"); }
    void TearDown() override { setZone("UTC"); }
    static void setZone(const char *zone)
    {
        ::setenv("TZ", zone, 1);
        ::tzset();
    }
    static std::optional<Time> dateOf(const std::string &name)
    {
        const auto snapshots = LocalSnapshot::parse(name + "\n");
        return snapshots.size() == 1 ? snapshots.front().date : std::optional(distantPast);
    }
};

constexpr Time tenFifteen{std::chrono::seconds{1714558500}}; // 1 May 2024 10:15:00 UTC

TEST_F(LocalSnapshotTest, HeaderLinesAreIgnoredAndOrderIsKept)
{
    const auto snapshots = LocalSnapshot::parse("Snapshots for disk /:\n"
                                                "com.apple.TimeMachine.2024-05-01-101500.local\n"
                                                "\n"
                                                "com.apple.TimeMachine.2024-04-01-101500.local\n");
    ASSERT_EQ(snapshots.size(), 2u);
    EXPECT_EQ(snapshots[0].name, "com.apple.TimeMachine.2024-05-01-101500.local");
    EXPECT_EQ(snapshots[0].date, tenFifteen);
    EXPECT_EQ(snapshots[1].name, "com.apple.TimeMachine.2024-04-01-101500.local");
}

TEST_F(LocalSnapshotTest, TheDateIsInTheCurrentTimeZone)
{
    setZone("Europe/Berlin");
    EXPECT_EQ(dateOf("com.apple.TimeMachine.2024-05-01-101500.local"), tenFifteen - std::chrono::hours(2));
}

TEST_F(LocalSnapshotTest, ALineIsTrimmedBeforeItIsJudged)
{
    const auto snapshots = LocalSnapshot::parse("  \tcom.apple.TimeMachine.2024-05-01-101500.local \t\n");
    ASSERT_EQ(snapshots.size(), 1u);
    EXPECT_EQ(snapshots[0].name, "com.apple.TimeMachine.2024-05-01-101500.local");
}

TEST_F(LocalSnapshotTest, EveryKindOfSpaceIsTrimmedAndNoOtherCharacter)
{
    for (const std::string blank : {" ", "\t", "\u00A0", "\u1680", "\u2000", "\u200A", "\u202F", "\u205F", "\u3000"}) {
        const auto snapshots = LocalSnapshot::parse(blank + blank + "com.apple.a" + blank + "\n");
        ASSERT_EQ(snapshots.size(), 1u) << blank;
        EXPECT_EQ(snapshots[0].name, "com.apple.a") << blank;
    }
    EXPECT_TRUE(LocalSnapshot::parse("\u200Bcom.apple.a\n\rcom.apple.b\n").empty());
    EXPECT_EQ(LocalSnapshot::parse("com.apple.a\r\n").front().name, "com.apple.a\r");
}

TEST_F(LocalSnapshotTest, ALineMustBeginWithTheMarkInItsLetters)
{
    EXPECT_TRUE(LocalSnapshot::parse("com.appl\nCom.apple.a\nx com.apple.a\n").empty());
    EXPECT_EQ(LocalSnapshot::parse("com.apple\ncom.applesauce\n").size(), 2u);
}

TEST_F(LocalSnapshotTest, AListingWithoutALastLineFeedIsReadWhole)
{
    EXPECT_EQ(LocalSnapshot::parse("com.apple.a\ncom.apple.b").size(), 2u);
}

TEST_F(LocalSnapshotTest, AStampHasSeventeenCharactersNotBytes)
{
    // Seventeen bytes in fewer characters: the search continues. Seventeen characters in more bytes: it ends.
    EXPECT_EQ(dateOf("com.apple.2024-05-01-1015\u00E4.2024-05-01-101500"), tenFifteen);
    EXPECT_EQ(dateOf("com.apple.2024-05-01-10150\u00E4.2024-05-01-101500"), std::nullopt);
}

TEST_F(LocalSnapshotTest, ANameWithoutAStampHasNoDate)
{
    EXPECT_EQ(dateOf("com.apple.os.update-MSUPrepareUpdate"), std::nullopt);
}

TEST_F(LocalSnapshotTest, TheFirstPieceThatLooksLikeAStampDecides)
{
    EXPECT_EQ(dateOf("com.apple.2024-13-01-101500.2024-05-01-101500"), std::nullopt);
    EXPECT_EQ(dateOf("com.apple.a024-05-01-101500.2024-05-01-101500"), tenFifteen);
    EXPECT_EQ(dateOf("com.apple.2024-05-01-1015000.2024-05-01-101500"), tenFifteen);
}

TEST_F(LocalSnapshotTest, ADateThatDoesNotExistIsNoDate)
{
    EXPECT_EQ(dateOf("com.apple.2023-02-29-101500"), std::nullopt);
    EXPECT_EQ(dateOf("com.apple.2024-05-01-241500"), std::nullopt);
    EXPECT_EQ(dateOf("com.apple.2024-05-01 101500"), std::nullopt);
    EXPECT_EQ(dateOf("com.apple.2024-05-01-1-1500"), std::nullopt);
}

TEST_F(LocalSnapshotTest, TextThatIsNotUtf8GivesNothing)
{
    EXPECT_TRUE(LocalSnapshot::parse("com.apple.a\xff\n").empty());
    EXPECT_TRUE(LocalSnapshot::parse("com.apple.a\xed\xa0\x80\n").empty());
    EXPECT_EQ(LocalSnapshot::parse("com.apple.\xc3\xa4\n").size(), 1u);
}

TEST_F(LocalSnapshotTest, NothingGivesNothing)
{
    EXPECT_TRUE(LocalSnapshot::parse("").empty());
    EXPECT_TRUE(LocalSnapshot::parse("Snapshots for disk /:\n").empty());
}

} // namespace
} // namespace corvane
