#include <cmath>

#include <gtest/gtest.h>

#include "cli/tile_colors.h"
#include "cli/tile_label.h"
#include "core/file_type.h"
#include "map/treemap_builder.h"

namespace corvane {

namespace {

using Role = TileColors::Role;

constexpr Color hex(unsigned rgb)
{
    return {((rgb >> 16U) & 0xFFU) / 255.0, ((rgb >> 8U) & 0xFFU) / 255.0, (rgb & 0xFFU) / 255.0};
}

void expectNear(const Color &color, unsigned rgb)
{
    constexpr double oneStep = 1.6 / 255; // the table is rounded twice
    const Color expected = hex(rgb);
    EXPECT_NEAR(color.red, expected.red, oneStep) << std::hex << rgb;
    EXPECT_NEAR(color.green, expected.green, oneStep) << std::hex << rgb;
    EXPECT_NEAR(color.blue, expected.blue, oneStep) << std::hex << rgb;
}

TEST(TileColors, TintTheFolderColoursAsDesigned)
{
    struct Row {
        int index;
        unsigned leaf, frame, largest, smallest;
    };
    for (const Row &row : {Row{0, 0x7A8EFF, 0xCCD4FF, 0x7D91FF, 0xA3B1FF}, Row{3, 0xFBA864, 0xFEDDC3, 0xFBAA68, 0xFCC394},
                           Row{9, 0x9688E1, 0xD7D1F4, 0x988BE2, 0xB6ACEA}}) {
        const Color color = TreemapBuilder::folderColor(row.index);
        expectNear(TileColors::of(color, Role::leaf, 0).fill, row.leaf);
        expectNear(TileColors::of(color, Role::frame, 0).fill, row.frame);
        expectNear(TileColors::of(color, Role::nested, 0).fill, row.largest);
        expectNear(TileColors::of(color, Role::nested, 1).fill, row.smallest);
    }
}

TEST(TileColors, TextCanBeReadOnEveryTile)
{
    for (const Role role : {Role::frame, Role::leaf, Role::nested}) {
        for (const FileType type : FileType::allCases()) {
            const TileColors colors = TileColors::of(type.color(), role, 0);
            EXPECT_GE(contrast(colors.fill, mixed(colors.fill, colors.ink, sizeInkOpacity)), 4.5) << type.label();
        }
    }
    // Ink on pure blue is too close; the fill gives way until it is not.
    const TileColors blue = TileColors::of({0, 0, 1}, Role::leaf, 0);
    EXPECT_GE(contrast(blue.fill, mixed(blue.fill, blue.ink, sizeInkOpacity)), 4.55);
    EXPECT_GT(blue.fill.red, 0.22);
}

TEST(Contrast, IsThatOfTheGuideline)
{
    EXPECT_NEAR(contrast({0, 0, 0}, {1, 1, 1}), 21, 0.001);
    EXPECT_NEAR(contrast(hex(0x777777), {1, 1, 1}), 4.48, 0.01);
    EXPECT_EQ(contrast({1, 0, 0}, {1, 0, 0}), 1);
}

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
