#pragma once

#include "cli/console.h"
#include "disk/disk_breakdown.h"

namespace corvane {

/// The breakdown for people: the figures, a row for each segment, what is to be known of them.
void writeBreakdownTable(const DiskBreakdown &breakdown, Console &console);

} // namespace corvane
