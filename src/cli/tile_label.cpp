#include "cli/tile_label.h"

#include <cstddef>

#include "cli/character_width.h"
#include "map/treemap_builder.h"

namespace corvane {

namespace {

struct LabelStyle {
    double height;
    int weight;
    double insetX;
    double nameBaseline;
    double sizeBaseline;
    double leastTileHeight;
    double leastTileHeightForSize;
};

constexpr double frameGap = 26; ///< space in a frame besides the name and the size
constexpr std::size_t leastCharacters = 8;

LabelStyle styleOf(TileColors::Role role)
{
    switch (role) {
    case TileColors::Role::frame:
        return {12, 600, 7, 15, 15, TreemapBuilder::labelBand, TreemapBuilder::labelBand};
    case TileColors::Role::leaf:
        return {12, 600, 7, 16, 31, 24, 42};
    case TileColors::Role::nested:
        break;
    }
    return {11, 500, 6, 13, 27, 19, 34};
}

/// The width of an ASCII character relative to the font height: rough classes for a humanist sans-serif.
double asciiWidth(char c)
{
    constexpr std::string_view narrow = "iljI.,:;'|!";
    constexpr std::string_view slim = "frt()[]{}/\\ -\"`*";
    constexpr std::string_view broad = "mwMW@%";
    if (narrow.find(c) != std::string_view::npos)
        return 0.29;
    if (slim.find(c) != std::string_view::npos)
        return 0.40;
    if (broad.find(c) != std::string_view::npos)
        return 0.92;
    return c >= 'A' && c <= 'Z' ? 0.70 : 0.61;
}

double clusterWidth(std::string_view text, std::size_t position, const Cluster &cluster)
{
    if (cluster.length == 1)
        return asciiWidth(text[position]);
    return cluster.width == 2 ? 1.2 : 0.66 * static_cast<double>(cluster.width);
}

double emboldened(double width, int weight)
{
    return weight >= 600 ? width * 1.05 : width * 1.02;
}

/// The whole name, or a shortened one of at least eight characters and "…", or nothing.
std::string fitted(std::string_view name, double room, const LabelStyle &style)
{
    if (textWidth(name, style.height, style.weight) <= room)
        return std::string(name);
    room -= textWidth("…", style.height, style.weight);
    std::size_t kept = 0;
    std::size_t characters = 0;
    double width = 0;
    while (kept < name.size()) {
        const Cluster cluster = nextCluster(name, kept);
        width += emboldened(clusterWidth(name, kept, cluster) * style.height, style.weight);
        if (width > room)
            break;
        kept += cluster.length;
        ++characters;
    }
    return characters < leastCharacters ? std::string() : std::string(name.substr(0, kept)) + "…";
}

} // namespace

double textWidth(std::string_view text, double height, int weight)
{
    double width = 0;
    for (std::size_t i = 0; i < text.size();) {
        const Cluster cluster = nextCluster(text, i);
        width += clusterWidth(text, i, cluster);
        i += cluster.length;
    }
    return emboldened(width * height, weight);
}

TileLabel TileLabel::of(std::string_view name, std::string_view size, const Rect &tile, TileColors::Role role)
{
    const LabelStyle style = styleOf(role);
    if (tile.height < style.leastTileHeight)
        return {};

    TileLabel label;
    label.nameHeight = style.height;
    label.nameWeight = style.weight;
    label.nameX = style.insetX;
    label.nameBaseline = style.nameBaseline;
    label.sizeBaseline = style.sizeBaseline;
    label.name = fitted(name, tile.width - 2 * style.insetX, style);
    if (label.name.empty())
        return {};

    const double sizeWidth = textWidth(size, sizeHeight, 400);
    bool sizeFits = false;
    if (role == TileColors::Role::frame) {
        label.sizeEndsAtX = true;
        label.sizeX = tile.width - style.insetX;
        sizeFits = textWidth(name, style.height, style.weight) + sizeWidth + frameGap <= tile.width;
    } else {
        label.sizeX = style.insetX;
        sizeFits = tile.height >= style.leastTileHeightForSize && sizeWidth <= tile.width - 2 * style.insetX;
    }
    if (sizeFits)
        label.size = size;
    return label;
}

} // namespace corvane
