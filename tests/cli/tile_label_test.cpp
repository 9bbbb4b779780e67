#include "cli/tile_label.h"

#include <gtest/gtest.h>

namespace corvane {

namespace {

using Role = TileColors::Role;

TEST(TileLabel, ASmallTileHasNone)
{
    EXPECT_EQ(TileLabel::of("a", "1 KB", {0, 0, 200, 23.9}, Role::leaf).name, "");
    EXPECT_EQ(TileLabel::of("a", "1 KB", {0, 0, 200, 24}, Role::leaf).name, "a");
    EXPECT_EQ(TileLabel::of("a", "1 KB", {0, 0, 200, 18.9}, Role::nested).name, "");
    EXPECT_EQ(TileLabel::of("a", "1 KB", {0, 0, 200, 19}, Role::nested).name, "a");
}

TEST(TileLabel, TheSizeNeedsRoomBelowTheName)
{
    EXPECT_EQ(TileLabel::of("a", "1 KB", {0, 0, 200, 41.9}, Role::leaf).size, "");
    EXPECT_EQ(TileLabel::of("a", "1 KB", {0, 0, 200, 42}, Role::leaf).size, "1 KB");
    EXPECT_EQ(TileLabel::of("a", "1 KB", {0, 0, 200, 33.9}, Role::nested).size, "");
    EXPECT_EQ(TileLabel::of("a", "1 KB", {0, 0, 200, 34}, Role::nested).size, "1 KB");
    EXPECT_EQ(TileLabel::of("a", "100.5 MB", {0, 0, 40, 60}, Role::leaf).size, "");
}

TEST(TileLabel, ANameIsShownWholeOrWithEightCharactersAtLeast)
{
    const std::string name = "a rather long name.mov";
    const double whole = textWidth(name, 12, 600) + 14;
    EXPECT_EQ(TileLabel::of(name, "", {0, 0, whole, 30}, Role::leaf).name, name);
    EXPECT_TRUE(TileLabel::of(name, "", {0, 0, whole - 1, 30}, Role::leaf).name.ends_with("…"));
    const double eight = textWidth("a rather…", 12, 600) + 14;
    EXPECT_EQ(TileLabel::of(name, "", {0, 0, eight + 0.1, 30}, Role::leaf).name, "a rather…");
    EXPECT_EQ(TileLabel::of(name, "", {0, 0, eight - 0.1, 30}, Role::leaf).name, "");
}

TEST(TileLabel, InAFrameTheSizeGoesFirst)
{
    const double both = textWidth("folder", 12, 600) + textWidth("2 MB", 11, 400) + 26;
    const TileLabel wide = TileLabel::of("folder", "2 MB", {0, 0, both + 0.1, 80}, Role::frame);
    EXPECT_EQ(wide.name, "folder");
    EXPECT_EQ(wide.size, "2 MB");
    EXPECT_TRUE(wide.sizeEndsAtX);
    const TileLabel narrow = TileLabel::of("folder", "2 MB", {0, 0, both - 0.1, 80}, Role::frame);
    EXPECT_EQ(narrow.name, "folder");
    EXPECT_EQ(narrow.size, "");
}

} // namespace

} // namespace corvane
