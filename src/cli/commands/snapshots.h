#pragma once

#include <vector>

#include "cli/console.h"
#include "cli/json_writer.h"
#include "disk/disk_breakdown.h"

namespace corvane {

/// Writes a line for each snapshot: its date and name, its size if known; beneath it, the command that deletes it, if
/// the user can.
void writeSnapshotsTable(const std::vector<LocalSnapshot> &snapshots, Console &console);

/// Writes the snapshots as one JSON array of objects with "name" and "date"; those that a command deletes also have
/// "size" (null if unknown) and "command".
void writeSnapshots(const std::vector<LocalSnapshot> &snapshots, JsonWriter &json);

} // namespace corvane
