#include "cli/map_svg.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include <fmt/format.h>

#include "cli/tile_label.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"
#include "core/words/shared_texts.h"
#include "map/tile_colors.h"

namespace corvane {

namespace {

/// Bytes as XML text: replaces characters that XML does not allow, escapes special ones.
std::string xmlText(std::string_view bytes)
{
    std::string text;
    for (const char c : displayUtf8(bytes)) {
        switch (c) {
        case '&':
            text += "&amp;";
            break;
        case '<':
            text += "&lt;";
            break;
        case '>':
            text += "&gt;";
            break;
        default:
            text += c;
        }
    }
    return text;
}

std::string hexColor(const Color &color)
{
    const auto part = [](double value) { return static_cast<int>(std::lround(std::clamp(value, 0.0, 1.0) * 255)); };
    return fmt::format("#{:02X}{:02X}{:02X}", part(color.red), part(color.green), part(color.blue));
}

/// A length in points, rounded to hundredths, without trailing zeros.
std::string number(double length)
{
    std::string text = fmt::format("{:.2f}", length);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.'))
        text.pop_back();
    return text;
}

TileColors::Role roleOf(const TreemapTile &tile)
{
    if (tile.depth > 0)
        return TileColors::Role::nested;
    return tile.hasNested ? TileColors::Role::frame : TileColors::Role::leaf;
}

/// The attributes for a tile's rounded corners.
std::string cornerAttributes(const Rect &tile, TileColors::Role role)
{
    const double side = std::min(tile.width, tile.height);
    if (side < 4)
        return " shape-rendering=\"crispEdges\"";
    if (side < 8)
        return {};
    const int radius = role == TileColors::Role::frame ? 4 : role == TileColors::Role::leaf ? 3 : 2;
    return fmt::format(" rx=\"{}\"", radius);
}

void writeLabel(const TileLabel &label, const Rect &tile, const Color &ink, Output &out)
{
    if (label.name.empty())
        return;
    out.write(fmt::format("<text x=\"{}\" y=\"{}\" font-size=\"{}\" font-weight=\"{}\" fill=\"{}\">{}</text>",
                          number(tile.x + label.nameX), number(tile.y + label.nameBaseline), label.nameHeight,
                          label.nameWeight, hexColor(ink), xmlText(label.name)));
    if (label.size.empty())
        return;
    out.write(fmt::format("<text x=\"{}\" y=\"{}\" font-size=\"{}\" fill=\"{}\" fill-opacity=\"{}\"{}>{}</text>",
                          number(tile.x + label.sizeX), number(tile.y + label.sizeBaseline), TileLabel::sizeHeight,
                          hexColor(ink), TileColors::sizeInkOpacity, label.sizeEndsAtX ? " text-anchor=\"end\"" : "",
                          xmlText(label.size)));
}

void writeTile(const TreemapTile &tile, double rank, Output &out)
{
    const TileColors::Role role = roleOf(tile);
    const TileColors colors = TileColors::of(tile.color, role, rank, TileColors::Appearance::light);
    const std::string size = formatByteCount(tile.size);
    out.write(fmt::format("<g><title>{}\n{}</title>", xmlText(tile.label), size));
    out.write(fmt::format("<rect x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\"{} fill=\"{}\"/>", number(tile.rect.x),
                          number(tile.rect.y), number(tile.rect.width), number(tile.rect.height),
                          cornerAttributes(tile.rect, role), hexColor(colors.fill)));
    writeLabel(TileLabel::of(displayUtf8(tile.label), size, tile.rect, role), tile.rect, colors.ink, out);
    out.write("</g>\n");
}

} // namespace

void writeMapSvg(const FolderScan &scan, const std::vector<TreemapTile> &tiles, const Rect &size, Output &out)
{
    const FileNode &root = *scan.root;
    out.write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    out.write(fmt::format("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{0}\" height=\"{1}\" "
                          "viewBox=\"0 0 {0} {1}\" font-family=\"Inter, system-ui, -apple-system, sans-serif\">\n",
                          number(size.width), number(size.height)));
    out.write(fmt::format("<title>{} · {}</title>\n", xmlText(root.path()), formatByteCount(root.size)));
    if (scan.isCancelled)
        out.write(fmt::format("<desc>{}</desc>\n", stoppedScanText));
    out.write("<rect width=\"100%\" height=\"100%\" fill=\"#FFFFFF\"/>\n");
    for (std::size_t i = 0; i < tiles.size();) {
        writeTile(tiles[i], 0, out);
        std::size_t end = i + 1;
        while (end < tiles.size() && tiles[end].depth > 0)
            ++end;
        const std::size_t nested = end - i - 1;
        for (std::size_t place = 0; place < nested; ++place) {
            const double rank = nested > 1 ? static_cast<double>(place) / static_cast<double>(nested - 1) : 0;
            writeTile(tiles[i + 1 + place], rank, out);
        }
        i = end;
    }
    out.write("</svg>\n");
}

} // namespace corvane
