#include "cli/breakdown_table.h"

#include <algorithm>
#include <string_view>

#include <fmt/format.h>

#include "cli/folder_scan.h"
#include "cli/size_bar.h"
#include "cli/terminal_text.h"
#include "core/systems/disk_table.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"

namespace corvane {

namespace {

constexpr std::size_t sizeColumns = 10;
constexpr std::size_t percentColumns = 6;
constexpr std::size_t barColumns = 20;
constexpr std::size_t columnsBeforeName = sizeColumns + 2 + percentColumns + 2 + barColumns + 2;
constexpr std::size_t leastNameColumns = 8;

/// A name as wide as the terminal leaves room for, with a mark that is never cut.
std::string fitted(std::string_view name, std::string_view mark, const Console &console)
{
    const std::size_t columns = console.outColumns();
    const std::size_t taken = columnsBeforeName + displayWidth(mark);
    const std::size_t room = std::max(columns - std::min(columns, taken), leastNameColumns);
    return elided(displayUtf8(name), room) + std::string(mark);
}

void writeSegment(const BreakdownSegment &segment, std::int64_t used, Console &console)
{
    const double share = used > 0 ? static_cast<double>(segment.size) / static_cast<double>(used) : 0;
    const bool isUnexplained = segment.kind == BreakdownSegment::Kind::hidden;
    console.out.write(fmt::format("{}  {}  {}  {}\n", rightAligned(formatByteCount(segment.size), sizeColumns),
                                  rightAligned(formatPercent(percentOf(segment.size, used)), percentColumns),
                                  console.colored(sizeBar(share, barColumns), segment.color),
                                  fitted(segment.title, isUnexplained ? " (unexplained)" : "", console)));
    const std::string indentation(columnsBeforeName - sizeColumns, ' ');
    for (const NamedSize &child : segment.children) {
        console.out.write(console.faint(rightAligned(formatByteCount(child.size), sizeColumns) + indentation +
                                        fitted("  " + child.name, "", console)) +
                          "\n");
    }
}

/// What may be in the space that no row explains, or nothing.
std::string unexplainedReason(const DiskBreakdown &breakdown)
{
    for (const BreakdownSegment &segment : breakdown.segments) {
        if (segment.kind == BreakdownSegment::Kind::hidden && !segment.detail.empty())
            return fmt::format("{}: {}", segment.title, segment.detail);
    }
    return {};
}

} // namespace

void writeBreakdownTable(const DiskBreakdown &breakdown, Console &console)
{
    const DiskTable &table = diskTableOf(breakdown.system);
    console.out.write(console.strong(fmt::format("{}% explained", breakdown.explainedPercentage())) + "\n");
    console.out.write(fmt::format("{} used of {}, {} free on {}\n", formatByteCount(breakdown.used()),
                                  formatByteCount(breakdown.total), formatByteCount(breakdown.free),
                                  displayUtf8(breakdown.volumeName)));
    if (breakdown.scanIsPartial)
        console.out.write(console.strong(stoppedText) + "\n");
    console.out.write('\n');
    for (const BreakdownSegment &segment : breakdown.segments)
        writeSegment(segment, breakdown.used(), console);
    if (!breakdown.segments.empty())
        console.out.write('\n');
    if (!breakdown.snapshots.empty()) {
        console.out.write(formatCount(static_cast<std::int64_t>(breakdown.snapshots.size()), table.snapshotNoun,
                                      table.snapshotsNoun) +
                          "; \"corvane-cli snapshots\" lists them\n");
    }
    if (!breakdown.hasScan && table.leavesHomeToTheScan)
        console.out.write("\"corvane-cli breakdown --scan ~\" explains your home folder too\n");
    else if (const std::string reason = unexplainedReason(breakdown); !reason.empty())
        console.out.write(console.faint(reason) + "\n");
    for (const std::string &note : breakdown.footnotes())
        console.out.write(console.faint(note) + "\n");
}

} // namespace corvane
