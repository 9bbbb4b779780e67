#pragma once

#include <vector>

#include "cli/json_writer.h"
#include "disk/disk_breakdown.h"

namespace corvane {

/// The snapshots as one JSON array: `[{"name","date"}]`.
void writeSnapshots(const std::vector<LocalSnapshot> &snapshots, JsonWriter &json);

} // namespace corvane
