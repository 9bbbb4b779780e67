#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/stop_flag.h"
#include "core/systems/disk_table.h"
#include "disk/apfs_container_info.h"
#include "disk/disk_breakdown.h"
#include "disk/local_snapshot.h"
#include "platform/host.h"

namespace corvane {

/// Explains the whole startup disk. Stateless; every call blocks and must run off the main thread.
struct DiskAccountant {
    using Location = DiskLocation;
    /// A Mac's.
    static const std::array<Location, 5> locations;

    /// A location's size and its three largest children.
    using Measurement = std::pair<std::int64_t, std::vector<NamedSize>>;

    /// The sources of the figures, each replaceable in tests.
    struct Sources {
        std::function<VolumeFacts()> volume;
        std::function<std::optional<APFSContainerInfo>(std::int64_t)> container;
        std::function<std::vector<LocalSnapshot>()> snapshots;
        std::function<bool(const std::string &)> exists;
        std::function<Measurement(const std::string &, const std::optional<std::string> &)> measure;
        /// Measures the places of the table; the second value is the number of folders that could not be read.
        std::function<std::pair<std::vector<BreakdownSegment>, std::int64_t>(const std::optional<std::string> &)>
            places;
        std::string home;
        SystemKind system = SystemKind::mac;
    };

    /// When stopped, the result is meaningless.
    [[nodiscard]] static DiskBreakdown compute(const ScanContext &scan, const Host &host = systemHost(),
                                               const StopFlag &stop = neverStopped);
    [[nodiscard]] static DiskBreakdown compute(const ScanContext &scan, const Sources &sources);

    /// The allocated size of a folder's children, without the child that is or contains `excluding`.
    [[nodiscard]] static Measurement measure(const std::string &path, const std::optional<std::string> &excluding,
                                             FileSystem &files = systemHost().files,
                                             const StopFlag &stop = neverStopped);

    /// The local snapshots, in the order of their keepers; none on any failure.
    [[nodiscard]] static std::vector<LocalSnapshot> loadSnapshots(const Host &host = systemHost(),
                                                                  const StopFlag &stop = neverStopped);
};

} // namespace corvane
