#include "disk/disk_breakdown.h"

#include <cmath>

#include <fmt/format.h>

#include "core/checked_add.h"
#include "core/file_node.h"
#include "core/words/figures.h"

namespace corvane {

namespace {

// As many of the scanned folder's items as fit into one line of a row.
constexpr std::size_t topChildrenShown = 5;

} // namespace

ScanContext ScanContext::of(const FileNode &root, std::int64_t unreadableCount)
{
    ScanContext context;
    context.rootPath = root.path();
    context.rootSize = root.size;
    context.unreadableCount = unreadableCount;
    for (const auto &child : root.children) {
        // Seen through "/", the sealed system volume is a folder, which has a segment of its own.
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
    std::vector<std::string> notes;
    if (overcount >= 1) {
        notes.push_back(fmt::format("Scanned files add up to {} more than the disk actually uses. That's normal: "
                                    "copies made in Finder on APFS share their storage (clones), so they're counted "
                                    "twice here but stored once.",
                                    formatByteCount(overcount)));
    }
    if (!fromAPFS)
        notes.emplace_back("Couldn't read the APFS layout, so macOS, swap and Recovery are shown as one total.");
    notes.emplace_back("Sizes are the space files really occupy on disk, so they can differ slightly from the sizes "
                       "Finder shows.");
    return notes;
}

} // namespace corvane
