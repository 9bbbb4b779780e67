#include "disk/disk_breakdown.h"

#include <cmath>

#include "core/checked_add.h"

namespace corvane {

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

} // namespace corvane
