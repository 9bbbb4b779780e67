#include "map/ui/tile_tones.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "core/file_type.h"
#include "map/treemap_builder.h"

namespace corvane {
namespace {

struct Row {
    Color color;
    const char *leaf;
    const char *frame;
    const char *largest;  // nested
    const char *smallest; // nested
};

void expectRow(TileTones &tones, const Row &row, int index)
{
    SCOPED_TRACE(index);
    const auto name = [](const QColor &color) { return color.name(QColor::HexRgb).toUpper().toStdString(); };
    EXPECT_EQ(name(tones.fill(row.color, TileRole::leaf)), row.leaf);
    EXPECT_EQ(name(tones.fill(row.color, TileRole::frame)), row.frame);
    EXPECT_EQ(name(tones.fill(row.color, TileRole::nested, 0)), row.largest);
    EXPECT_EQ(name(tones.fill(row.color, TileRole::nested, 1)), row.smallest);
}

// Each colour was checked by eye and for contrast.
TEST(TileTones, FillsInLightAreTheseTints)
{
    constexpr std::array<std::array<const char *, 4>, 10> tints{{
        {"#7A8EFF", "#CCD4FF", "#7D91FF", "#A3B1FF"},
        {"#B380F7", "#E2CEFC", "#B583F7", "#CBA7FA"},
        {"#F581A5", "#FBCFDD", "#F585A8", "#F8A8C1"},
        {"#FBA864", "#FEDDC3", "#FBAA68", "#FCC394"},
        {"#52BFCC", "#BCE6EB", "#56C1CD", "#87D3DB"},
        {"#64C492", "#C3E8D5", "#68C595", "#94D6B3"},
        {"#E38CE7", "#F4D3F6", "#E48FE7", "#ECAFEE"},
        {"#74B3FB", "#CAE2FE", "#78B5FB", "#9FCBFC"},
        {"#ECBF58", "#F8E6BF", "#ECC15C", "#F2D38B"},
        {"#9688E1", "#D7D1F4", "#988BE2", "#B6ACEA"},
    }};
    TileTones tones(false);
    for (int i = 0; i < 10; ++i) {
        const auto &[leaf, frame, largest, smallest] = tints[static_cast<std::size_t>(i)];
        expectRow(tones, {TreemapBuilder::folderColor(i), leaf, frame, largest, smallest}, i);
    }
}

TEST(TileTones, FillsInDarkAreTheseTints)
{
    constexpr std::array<std::array<const char *, 4>, 10> tints{{
        {"#4051B2", "#282F58", "#3E4FAE", "#354289"},
        {"#7045AC", "#3B2A55", "#6E44A7", "#583985"},
        {"#A44564", "#512B3A", "#A44564", "#813A52"},
        {"#8E562B", "#533824", "#8E562B", "#84522A"},
        {"#1D6F7A", "#1A3F47", "#1D6F7A", "#1C606A"},
        {"#2B724F", "#204133", "#2B724F", "#276346"},
        {"#8D4A92", "#4B2E50", "#8D4A92", "#76407B"},
        {"#37669D", "#263C56", "#37669D", "#315987"},
        {"#7B6023", "#4E3F20", "#7B6023", "#7B6023"},
        {"#574C99", "#312D4E", "#554A95", "#463E77"},
    }};
    TileTones tones(true);
    for (int i = 0; i < 10; ++i) {
        const auto &[leaf, frame, largest, smallest] = tints[static_cast<std::size_t>(i)];
        expectRow(tones, {TreemapBuilder::folderColor(i), leaf, frame, largest, smallest}, i);
    }
}

TEST(TileTones, AggregatesAreTheseGreys)
{
    const Color grey = TreemapBuilder::itemColor(nullptr, 0);
    TileTones light(false);
    EXPECT_EQ(light.fill(grey, TileRole::leaf), QColor("#BFC4CD"));
    EXPECT_EQ(light.fill(grey, TileRole::nested, 0), QColor("#C1C5CE"));
    EXPECT_EQ(light.fill(grey, TileRole::nested, 1), QColor("#D3D6DC"));
    TileTones dark(true);
    EXPECT_EQ(dark.fill(grey, TileRole::leaf), QColor("#62666E"));
    EXPECT_EQ(dark.fill(grey, TileRole::nested, 0), QColor("#62666E"));
    EXPECT_EQ(dark.fill(grey, TileRole::nested, 1), QColor("#60636B"));
}

double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor over(const QColor &ground, const QColor &ink)
{
    const double alpha = ink.alphaF();
    const auto blend = [alpha](double below, double above) {
        return static_cast<float>(below + (above - below) * alpha);
    };
    return QColor::fromRgbF(blend(ground.redF(), ink.redF()), blend(ground.greenF(), ink.greenF()),
                            blend(ground.blueF(), ink.blueF()));
}

TEST(TileTones, EverySizeLineIsLegibleOnEveryTile)
{
    std::vector<Color> colors;
    for (int i = 0; i < 10; ++i)
        colors.push_back(TreemapBuilder::folderColor(i));
    for (const FileType type : FileType::allCases())
        colors.push_back(type.color());
    for (const bool dark : {false, true}) {
        TileTones tones(dark);
        for (const Color &color : colors) {
            for (const TileRole role : {TileRole::frame, TileRole::leaf, TileRole::nested}) {
                for (int rank = 0; rank <= 40; ++rank) {
                    const QColor ground = tones.fill(color, role, rank / 40.0);
                    EXPECT_GE(contrast(ground, over(ground, tones.sizeInk(color))), 4.5)
                        << ground.name().toStdString() << (dark ? " dark" : " light");
                }
            }
        }
    }
}

TEST(TileTones, NestedTilesGrowPalerTowardsTheSmallest)
{
    TileTones tones(false);
    double last = 0;
    for (int rank = 0; rank <= 40; ++rank) {
        const double lightness = luminance(tones.fill(TreemapBuilder::folderColor(1), TileRole::nested, rank / 40.0));
        EXPECT_GE(lightness, last);
        last = lightness;
    }
}

TEST(TileTones, WhatWasWorkedOutOnceIsGivenAgain)
{
    TileTones tones(true);
    const QColor first = tones.fill(TreemapBuilder::folderColor(8), TileRole::nested, 0.5);
    EXPECT_EQ(tones.fill(TreemapBuilder::folderColor(8), TileRole::nested, 0.5), first);
    EXPECT_NE(tones.fill(TreemapBuilder::folderColor(7), TileRole::nested, 0.5), first);
}

} // namespace
} // namespace corvane
