#pragma once

#include <vector>

#include "cli/output.h"
#include "disk/disk_breakdown.h"

namespace corvane {

/// The breakdown as one JSON document, its fields by their names; that of a partial scan also has `cancelled`.
void writeBreakdownJson(const DiskBreakdown &breakdown, Output &out);

/// Snapshots alone: `[{"name","date"}]`.
void writeSnapshotsJson(const std::vector<LocalSnapshot> &snapshots, Output &out);

} // namespace corvane
