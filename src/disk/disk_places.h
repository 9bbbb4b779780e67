#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/shell.h"
#include "core/stop_flag.h"
#include "core/systems/disk_table.h"
#include "disk/disk_breakdown.h"
#include "platform/host.h"

namespace corvane {

/// Measures the places of a system's disk: the space that each occupies, without double counting.
class DiskPlaces {
public:
    /// All references must outlive the object.
    DiskPlaces(const DiskTable &table, const Host &host, ToolRunner runTool, const StopFlag &stop);

    /// One segment for each place, for swap files and for open deleted files, whatever their size, in the order of the
    /// table. Leaves out the contents of the scanned folder. For a place that the user may not read, uses the figure of
    /// its tool.
    [[nodiscard]] std::vector<BreakdownSegment> measure(const std::optional<std::string> &scannedRoot);

    /// The number of folders that `measure` could not read.
    [[nodiscard]] std::int64_t denied() const { return m_denied; }

    /// A segment with the place's texts, and nothing inside.
    [[nodiscard]] static BreakdownSegment segmentOf(const DiskPlace &place,
                                                    BreakdownSegment::Kind kind = BreakdownSegment::Kind::measured,
                                                    std::int64_t size = 0);

    /// The bytes reported in a tool's output; nothing if it cannot be parsed.
    [[nodiscard]] static std::optional<std::int64_t> sizeIn(const std::string &output, SizeTool::Answer answer);

private:
    class Measurement;

    const DiskTable &m_table;
    const Host m_host;
    const ToolRunner m_runTool;
    const StopFlag &m_stop;
    std::int64_t m_denied = 0;
};

} // namespace corvane
