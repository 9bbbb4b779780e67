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

/// Reads which snapshots of the disk there are, as far as that needs no privilege. What cannot be read has none.
class SnapshotListing {
public:
    /// The files must outlive it.
    SnapshotListing(FileSystem &files, ToolRunner runTool) : m_files(files), m_runTool(std::move(runTool)) {}

    /// In the order of the keepers and of their own lists. Blocks; not on the main thread.
    [[nodiscard]] std::vector<LocalSnapshot> read(std::span<const SnapshotKeeper> keepers) const;

    // --- What the tools write

    /// The names in snapper's table of configurations; without those that could be taken for an option.
    [[nodiscard]] static std::vector<std::string> snapperConfigurations(std::string_view table);
    /// The snapshots in its table of one configuration's "number,date", dates in UTC. 0 is the present state.
    [[nodiscard]] static std::vector<LocalSnapshot> ofSnapper(const std::string &configuration, std::string_view table);
    /// The date in the file that snapper writes beside a snapshot.
    [[nodiscard]] static std::optional<Time> dateInInfo(std::string_view xml);
    /// One that timeshift keeps in a folder of that name; nothing for any other folder.
    [[nodiscard]] static std::optional<LocalSnapshot> ofTimeshift(std::string_view folder);
    /// The snapshots of those pools in zfs's table of names, bytes and seconds, divided by tabs.
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

/// The text as one word of a shell's command.
[[nodiscard]] std::string shellWord(std::string_view text);

} // namespace corvane
