#include "disk/disk_breakdown.h"

#include <cmath>

#include <fmt/format.h>

#include "core/checked_add.h"
#include "core/file_node.h"
#include "core/systems/disk_table.h"
#include "core/words/figures.h"

namespace corvane {

namespace {

// As many of the scanned folder's items as fit on one line of a row.
constexpr std::size_t topChildrenShown = 5;

} // namespace

ScanContext ScanContext::of(const FileNode &root, std::int64_t unreadableCount)
{
    ScanContext context;
    context.rootPath = root.path();
    context.rootSize = root.size;
    context.unreadableCount = unreadableCount;
    for (const auto &child : root.children) {
        // The sealed system volume appears as a folder in "/", but has a segment of its own.
        if (*context.rootPath == "/" && child->name == "System")
            context.systemDirSize = child->size;
        else if (context.topChildren.size() < topChildrenShown)
            context.topChildren.push_back({child->name, child->size});
    }
    return context;
}

std::int64_t DiskBreakdown::hidden() const
{
    std::int64_t sum = 0;
    for (const BreakdownSegment &segment : segments) {
        if (segment.kind == BreakdownSegment::Kind::hidden)
            sum = checkedAdd(sum, segment.size);
    }
    return sum;
}

std::int64_t DiskBreakdown::used() const
{
    return checkedSubtract(total, free);
}

int DiskBreakdown::explainedPercentage() const
{
    const std::int64_t usedBytes = used();
    if (usedBytes < 1)
        return 0;
    const auto explained = static_cast<double>(checkedSubtract(usedBytes, hidden()));
    return static_cast<int>(std::lround(100.0 * explained / static_cast<double>(usedBytes)));
}

std::vector<std::string> DiskBreakdown::footnotes() const
{
    const DiskTable &table = diskTableOf(system);
    std::vector<std::string> notes;
    if (overcount >= 1)
        notes.push_back(fmt::format(fmt::runtime(table.overcountNote), formatByteCount(overcount)));
    if (!fromAPFS && !table.noLayoutNote.empty())
        notes.emplace_back(table.noLayoutNote);
    if (!table.reservedNote.empty() && reserved > 0 && reserved > (total - 1) / 100)
        notes.push_back(fmt::format(fmt::runtime(table.reservedNote), formatByteCount(reserved)));
    notes.emplace_back(table.sizesNote);
    return notes;
}

} // namespace corvane
