#pragma once

#include <vector>

#include "cli/json_writer.h"
#include "disk/disk_breakdown.h"

namespace corvane {

/// Writes the snapshots as one JSON array of objects with "name" and "date"; those that a command deletes also have
/// "size" (null if unknown) and "command".
void writeSnapshots(const std::vector<LocalSnapshot> &snapshots, JsonWriter &json);

} // namespace corvane
