#include "cli/map_command.h"

#include <charconv>
#include <vector>

#include <fmt/format.h>

#include "cli/folder_scan.h"
#include "cli/map_json.h"
#include "cli/map_svg.h"
#include "cli/map_table.h"
#include "cli/output_file.h"
#include "cli/path_argument.h"
#include "map/treemap_builder.h"

namespace corvane {

namespace {

constexpr std::string_view standardOutput = "-";
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

} // namespace

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

ExitStatus MapCommand::run(Console &console, const Host &host) const
{
    const Judged<std::string> folder = existingFolder(path, host.files);
    if (!folder) {
        console.complain(folder.error());
        return ExitStatus::refused;
    }
    const bool picturesToOutput = svgFile == standardOutput;
    if (picturesToOutput && json) {
        console.complain("--json and --svg - cannot both write to standard output; give --svg a file name");
        return ExitStatus::refused;
    }
    // Opened before the scan: what cannot be written should not cost the wait.
    std::optional<OutputFile> file;
    if (svgFile && !picturesToOutput) {
        file.emplace(*svgFile);
        if (file->error()) {
            console.complain(fmt::format("cannot write {}: {}", *svgFile, file->error().message()));
            return ExitStatus::refused;
        }
    }

    const Judged<FolderScan> scanned = FolderScan::run(*folder, FolderScan::Extent::tree, console, host.files);
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
    const ExitStatus status = scan.report(console, !json && !svgFile);
    return isWritten ? status : ExitStatus::doneWithFailures;
}

} // namespace corvane
