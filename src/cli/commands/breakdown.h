#pragma once

#include "cli/console.h"
#include "disk/disk_breakdown.h"

namespace corvane {

/// Writes the breakdown as one JSON object. Its members are named after the fields, except that `scanIsPartial` is
/// "cancelled".
void writeBreakdownJson(const DiskBreakdown &breakdown, Output &out);

/// Writes the breakdown as a table: the disk's figures, one row per segment, and notes.
void writeBreakdownTable(const DiskBreakdown &breakdown, Console &console);

} // namespace corvane
