#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/desktop_entry.h"
#include "core/stop_flag.h"
#include "platform/file_system.h"

namespace corvane {

/// The files installed by a system package, according to its list in the package database. Any thread.
class PackageFiles {
public:
    /// The absolute path in a line of the list; empty for a line without one.
    using PathOf = std::function<std::string(std::string_view line)>;

    PackageFiles(std::string list, PathOf pathOf, FileSystem &files)
        : m_list(std::move(list)), m_pathOf(std::move(pathOf)), m_files(files)
    {
    }

    /// The package's visible applications, in the order of the list.
    [[nodiscard]] std::vector<DesktopEntry> entries() const;

    /// The programs started by those entries, and the package's own folders that contain them.
    [[nodiscard]] std::vector<std::string> programs(const std::vector<DesktopEntry> &entries) const;

    /// The files' size on disk in bytes, counting hard links once.
    [[nodiscard]] std::int64_t size(const StopFlag &stop) const;

private:
    const std::string m_list;
    const PathOf m_pathOf;
    FileSystem &m_files;
};

} // namespace corvane
