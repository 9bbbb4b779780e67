#include "cli/commands/commands.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "cli/folder_heading.h"
#include "cli/folder_scan.h"
#include "cli/json_writer.h"
#include "cli/map_svg.h"
#include "cli/output_file.h"
#include "cli/scan_options.h"
#include "cli/scan_report.h"
#include "cli/table.h"
#include "cli/terminal_text.h"
#include "core/path_argument.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"
#include "map/treemap_builder.h"

namespace corvane {

namespace {

void writeTile(const TreemapTile &tile, JsonWriter &json)
{
    json.beginObject();
    json.text("label", tile.label);
    json.hexUnlessText("nameHex", tile.label);
    if (tile.node) {
        json.bytes("path", tile.node->path());
    } else {
        json.key("path");
        json.null();
    }
    json.value("size", tile.size);
    json.value("x", tile.rect.x);
    json.value("y", tile.rect.y);
    json.value("width", tile.rect.width);
    json.value("height", tile.rect.height);
    json.value("color", tile.color);
    json.value("depth", tile.depth);
    json.value("hasNested", tile.hasNested);
    json.endObject();
}

constexpr std::size_t numberColumns = 8;
constexpr std::size_t placeColumns = 4 * (numberColumns + 1);
constexpr std::size_t leastNameColumns = 20;

std::string line(std::string_view size, std::string_view x, std::string_view y, std::string_view width,
                 std::string_view height, std::string_view name)
{
    return fmt::format("{} {} {} {} {}  {}\n", rightAligned(size, sizeColumns()), rightAligned(x, numberColumns),
                       rightAligned(y, numberColumns), rightAligned(width, numberColumns),
                       rightAligned(height, numberColumns), name);
}

std::string points(double length)
{
    return fmt::format("{:.1f}", length);
}

std::string name(const TreemapTile &tile)
{
    const bool isFolder = tile.node && tile.node->kind != FileNode::Kind::file;
    return (tile.depth == 0 ? "" : "  ") + displayUtf8(tile.label) + (isFolder ? "/" : "");
}

constexpr std::string_view standardOutput = "-";
constexpr Rect usualSize{0, 0, 900, 600};
constexpr int largestSide = 100'000;

std::optional<int> side(std::string_view digits)
{
    int length = 0;
    const char *const end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, length);
    if (error != std::errc() || rest != end || length < 1 || length > largestSide)
        return std::nullopt;
    return length;
}

void writeMapJson(const FolderScan &scan, const std::vector<TreemapTile> &tiles, Output &out)
{
    JsonWriter json(out);
    json.beginObject();
    json.value("denied", scan.denied);
    json.value("cancelled", scan.isCancelled);
    writeFilter({&scan, 1}, json);
    json.key("tiles");
    json.beginArray();
    for (const TreemapTile &tile : tiles)
        writeTile(tile, json);
    json.endArray();
    json.endObject();
    json.finish();
}

void writeMapTable(const FolderScan &scan, const std::vector<TreemapTile> &tiles, std::string_view home,
                   Console &console)
{
    writeFolderHeading(scan, home, console);
    if (tiles.empty()) {
        writeNoItems(*scan.root, console);
        return;
    }
    const std::size_t columns = console.outColumns();
    const std::size_t nameStart = sizeColumns() + placeColumns + 2;
    if (columns < nameStart + leastNameColumns) {
        for (const TreemapTile &tile : tiles)
            console.out.write(fmt::format("{}  {}\n", sizeCell(tile.size),
                                          elided(name(tile), console.roomBeside(sizeColumns() + 2))));
        return;
    }
    console.out.write(console.faint(line("Size", "X", "Y", "Width", "Height", "Name")));
    for (const TreemapTile &tile : tiles)
        console.out.write(line(formatByteCount(tile.size), points(tile.rect.x), points(tile.rect.y),
                               points(tile.rect.width), points(tile.rect.height),
                               elided(name(tile), console.roomBeside(nameStart))));
}

/// Parses a size such as "900x600", each side from 1 to 100,000 points.
std::optional<Rect> mapSize(std::string_view text)
{
    const std::size_t cross = text.find('x');
    if (cross == std::string_view::npos)
        return std::nullopt;
    const std::optional<int> width = side(text.substr(0, cross));
    const std::optional<int> height = side(text.substr(cross + 1));
    if (!width || !height)
        return std::nullopt;
    return Rect{0, 0, static_cast<double>(*width), static_cast<double>(*height)};
}

ExitStatus run(const Arguments &arguments, Console &console, const Host &host)
{
    const std::string validSize = fmt::format("WIDTHxHEIGHT, such as 900x600, each from 1 to {}", largestSide);
    const Rect size = arguments.value("size", mapSize, validSize, "size").value_or(usualSize);
    const ScanFilter filter = scanFilterOf(arguments);
    const Judged<std::string> folder = existingFolder(arguments.paths.front(), host.files);
    if (!folder) {
        console.complain(folder.error());
        return ExitStatus::refused;
    }
    const bool json = arguments.has("json");
    const std::optional<std::string> svgFile = arguments.text("svg");
    if (svgFile && svgFile->empty())
        throw UsageError("\"\" is not a valid --svg; use the name of a file, or \"-\" for standard output");
    const bool picturesToOutput = svgFile == standardOutput;
    if (picturesToOutput && json) {
        console.complain("--json and --svg - cannot both write to standard output; give --svg a file name");
        return ExitStatus::refused;
    }
    // Open the file before the scan: fail early if it cannot be written.
    std::optional<OutputFile> file;
    if (svgFile && !picturesToOutput) {
        file.emplace(*svgFile);
        if (file->error()) {
            console.complain(fmt::format("cannot write {}: {}", *svgFile, file->error().message()));
            return ExitStatus::refused;
        }
    }

    const Judged<FolderScan> scanned = FolderScan::run(*folder, FolderScan::Extent::tree, console, host.files, filter);
    if (!scanned) {
        console.complain(scanned.error());
        return ExitStatus::doneWithFailures;
    }
    const FolderScan &scan = *scanned;
    const std::vector<TreemapTile> tiles = TreemapBuilder::tiles(*scan.root, size);
    bool isWritten = true;
    if (file) {
        writeMapSvg(scan, tiles, size, file->output());
        file->finish();
        isWritten = !file->error();
        if (!isWritten)
            console.complain(fmt::format("cannot write {}: {}", *svgFile, file->error().message()));
    }
    if (json)
        writeMapJson(scan, tiles, console.out);
    else if (picturesToOutput)
        writeMapSvg(scan, tiles, size, console.out);
    else if (!file)
        writeMapTable(scan, tiles, host.files.homeFolder(), console);
    const ExitStatus status = report(scan, console, !json && !svgFile);
    return isWritten ? status : ExitStatus::doneWithFailures;
}

std::vector<Option> options()
{
    std::vector<Option> options{
        {.name = "size", .value = "WxH", .help = "The map's size in points, by default 900x600"},
        {.name = "svg", .value = "FILE", .help = "Write the map as an SVG picture; \"-\" is standard output"}};
    std::ranges::copy(excludeOptions(), std::back_inserter(options));
    options.push_back(apparentOption());
    return options;
}

} // namespace

Command mapCommand()
{
    return {.name = "map",
            .summary = "Lay out a folder as a treemap.",
            .paths = {.help = "The folder", .least = 1, .most = 1},
            .options = options(),
            .example = "corvane-cli map ~/Pictures --size 1600x1000 --svg map.svg",
            .run = run};
}

} // namespace corvane
