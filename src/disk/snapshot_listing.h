#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/shell.h"
#include "core/systems/disk_table.h"
#include "disk/local_snapshot.h"
#include "platform/file_system.h"

namespace corvane {

/// Reads the snapshots of the disk as far as possible without privileges. A source that cannot be read counts as empty.
class SnapshotListing {
public:
    /// `files` must outlive the object.
    SnapshotListing(FileSystem &files, ToolRunner runTool) : m_files(files), m_runTool(std::move(runTool)) {}

    /// In the order of the keepers, then of each one's list. Blocks; off the main thread.
    [[nodiscard]] std::vector<LocalSnapshot> read(std::span<const SnapshotKeeper> keepers) const;

    // --- Parsers of tool output

    /// The names in snapper's table of configurations, without names that could be mistaken for an option.
    [[nodiscard]] static std::vector<std::string> snapperConfigurations(std::string_view table);
    /// The snapshots in its "number,date" table for one configuration, dates in UTC. Number 0 is the current state, not
    /// a snapshot.
    [[nodiscard]] static std::vector<LocalSnapshot> ofSnapper(const std::string &configuration, std::string_view table);
    /// The date in the file that snapper writes beside a snapshot.
    [[nodiscard]] static std::optional<Time> dateInInfo(std::string_view xml);
    /// The snapshot that timeshift keeps in a folder of that name; nothing for any other folder.
    [[nodiscard]] static std::optional<LocalSnapshot> ofTimeshift(std::string_view folder);
    /// The snapshots of those pools in zfs's tab-separated table of names, bytes and seconds.
    [[nodiscard]] static std::vector<LocalSnapshot> ofZfs(std::string_view table, const std::set<std::string> &pools);

private:
    [[nodiscard]] std::vector<LocalSnapshot> keptBy(SnapshotKeeper keeper) const;
    [[nodiscard]] std::vector<LocalSnapshot> snapper() const;
    [[nodiscard]] std::vector<LocalSnapshot> timeshift() const;
    [[nodiscard]] std::vector<LocalSnapshot> zfs() const;
    [[nodiscard]] std::vector<std::string> foldersIn(const std::string &path) const;

    FileSystem &m_files;
    const ToolRunner m_runTool;
};

/// Quotes the text as one word of a shell command.
[[nodiscard]] std::string shellWord(std::string_view text);

} // namespace corvane
