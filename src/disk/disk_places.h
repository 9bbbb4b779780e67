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

/// The places of a system's disk, measured: what each takes of the disk, nothing twice.
class DiskPlaces {
public:
    /// What is referred to must outlive it.
    DiskPlaces(const DiskTable &table, const Host &host, ToolRunner runTool, const StopFlag &stop);

    /// A segment of every place, of the files that are swapped to and of the deleted files that are still open,
    /// whatever their size, in the order of the table. What lies in the scanned folder is left out. Of a place that the
    /// user may not read, what its tool tells.
    [[nodiscard]] std::vector<BreakdownSegment> measure(const std::optional<std::string> &scannedRoot);

    /// How many folders `measure` could not look into.
    [[nodiscard]] std::int64_t denied() const { return m_denied; }

    /// The bytes that a tool's output tells; nothing where it cannot be read.
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
