#include "map/tile_colors.h"

#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "core/file_type.h"
#include "map/treemap_builder.h"

namespace corvane {

namespace {

using Appearance = TileColors::Appearance;
using Role = TileColors::Role;

constexpr Color hex(unsigned rgb)
{
    return {((rgb >> 16U) & 0xFFU) / 255.0, ((rgb >> 8U) & 0xFFU) / 255.0, (rgb & 0xFFU) / 255.0};
}

void expectColor(const Color &color, unsigned rgb)
{
    const auto steps = [](const Color &each) {
        return std::vector{std::round(each.red * 255), std::round(each.green * 255), std::round(each.blue * 255)};
    };
    EXPECT_EQ(steps(color), steps(hex(rgb))) << std::hex << rgb;
}

struct Row {
    unsigned own, lightLeaf, lightFrame, lightLargest, lightSmallest, darkLeaf, darkFrame, darkLargest, darkSmallest;
};

// The ten folder colours and their tints, each checked by eye and for contrast.
constexpr Row tints[] = {
    {0x546EFF, 0x7A8EFF, 0xCCD4FF, 0x7D91FF, 0xA3B1FF, 0x4051B2, 0x282F58, 0x3E4FAE, 0x354289},
    {0x9E5CF5, 0xB380F7, 0xE2CEFC, 0xB583F7, 0xCBA7FA, 0x7045AC, 0x3B2A55, 0x6E44A7, 0x583985},
    {0xF25E8C, 0xF581A5, 0xFBCFDD, 0xF585A8, 0xF8A8C1, 0xA44564, 0x512B3A, 0xA44564, 0x813A52},
    {0xFA8F38, 0xFBA864, 0xFEDDC3, 0xFBAA68, 0xFCC394, 0x8E562B, 0x533824, 0x8E562B, 0x84522A},
    {0x21ADBD, 0x52BFCC, 0xBCE6EB, 0x56C1CD, 0x87D3DB, 0x1D6F7A, 0x1A3F47, 0x1D6F7A, 0x1C606A},
    {0x38B373, 0x64C492, 0xC3E8D5, 0x68C595, 0x94D6B3, 0x2B724F, 0x204133, 0x2B724F, 0x276346},
    {0xDB6BE0, 0xE38CE7, 0xF4D3F6, 0xE48FE7, 0xECAFEE, 0x8D4A92, 0x4B2E50, 0x8D4A92, 0x76407B},
    {0x4D9EFA, 0x74B3FB, 0xCAE2FE, 0x78B5FB, 0x9FCBFC, 0x37669D, 0x263C56, 0x37669D, 0x315987},
    {0xE6AD29, 0xECBF58, 0xF8E6BF, 0xECC15C, 0xF2D38B, 0x7B6023, 0x4E3F20, 0x7B6023, 0x7B6023},
    {0x7866D9, 0x9688E1, 0xD7D1F4, 0x988BE2, 0xB6ACEA, 0x574C99, 0x312D4E, 0x554A95, 0x463E77},
};

TEST(TileColors, FolderColoursHaveTheseTints)
{
    for (const Row &row : tints) {
        const Color own = hex(row.own);
        expectColor(TileColors::of(own, Role::leaf, 0, Appearance::light).fill, row.lightLeaf);
        expectColor(TileColors::of(own, Role::frame, 0, Appearance::light).fill, row.lightFrame);
        expectColor(TileColors::of(own, Role::nested, 0, Appearance::light).fill, row.lightLargest);
        expectColor(TileColors::of(own, Role::nested, 1, Appearance::light).fill, row.lightSmallest);
        expectColor(TileColors::of(own, Role::leaf, 0, Appearance::dark).fill, row.darkLeaf);
        expectColor(TileColors::of(own, Role::frame, 0, Appearance::dark).fill, row.darkFrame);
        expectColor(TileColors::of(own, Role::nested, 0, Appearance::dark).fill, row.darkLargest);
        expectColor(TileColors::of(own, Role::nested, 1, Appearance::dark).fill, row.darkSmallest);
    }
}

TEST(TileColors, TheTintedColoursAreThoseOfFolders)
{
    for (int index = 0; index < 10; ++index)
        expectColor(TreemapBuilder::folderColor(index), tints[index].own);
}

TEST(TileColors, TextCanBeReadOnEveryTile)
{
    for (const Appearance appearance : {Appearance::light, Appearance::dark}) {
        for (const Role role : {Role::frame, Role::leaf, Role::nested}) {
            for (const FileType type : FileType::allCases()) {
                for (const double rank : {0.0, 0.5, 1.0}) {
                    const TileColors colors = TileColors::of(type.color(), role, rank, appearance);
                    EXPECT_GE(contrast(colors.fill, mixed(colors.fill, colors.ink, TileColors::sizeInkOpacity)), 4.5)
                        << type.label();
                }
            }
        }
    }
}

TEST(TileColors, AFillOnWhichInkIsHardToReadGivesWay)
{
    const Color blue{0, 0, 1};
    const TileColors colors = TileColors::of(blue, Role::leaf, 0, Appearance::light);

    EXPECT_GT(colors.fill.red, 0.22 + 0.02); // the ground's share without the correction for text, plus one step
    EXPECT_GE(contrast(colors.fill, mixed(colors.fill, colors.ink, TileColors::sizeInkOpacity)), 4.5);
}

} // namespace

} // namespace corvane
