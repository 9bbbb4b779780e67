#pragma once

#include "cli/console.h"
#include "disk/disk_breakdown.h"

namespace corvane {

/// The breakdown as one JSON document with the struct's field names; for a partial scan also `cancelled`.
void writeBreakdownJson(const DiskBreakdown &breakdown, Output &out);

/// The breakdown as a table: the figures, one row per segment, and notes.
void writeBreakdownTable(const DiskBreakdown &breakdown, Console &console);

} // namespace corvane
