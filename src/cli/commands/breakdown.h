#pragma once

#include "cli/console.h"
#include "disk/disk_breakdown.h"

namespace corvane {

/// The breakdown as one JSON document, its fields by their names; that of a partial scan also has `cancelled`.
void writeBreakdownJson(const DiskBreakdown &breakdown, Output &out);

/// The breakdown for people: the figures, a row for each segment, what is to be known of them.
void writeBreakdownTable(const DiskBreakdown &breakdown, Console &console);

} // namespace corvane
