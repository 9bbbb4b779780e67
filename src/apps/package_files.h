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

/// What a package of the system has installed, as the list of it in its database tells. Any thread.
class PackageFiles {
public:
    /// The absolute path that a line of the list names; empty for a line that names none.
    using PathOf = std::function<std::string(std::string_view line)>;

    PackageFiles(std::string list, PathOf pathOf, FileSystem &files)
        : m_list(std::move(list)), m_pathOf(std::move(pathOf)), m_files(files)
    {
    }

    /// The applications that the menus show of it, in the order of the list.
    [[nodiscard]] std::vector<DesktopEntry> entries() const;

    /// The programs that those entries start, and folders of the package's own that they lie in.
    [[nodiscard]] std::vector<std::string> programs(const std::vector<DesktopEntry> &entries) const;

    /// What the files take on the disk, in bytes, one of several names once.
    [[nodiscard]] std::int64_t size(const StopFlag &stop) const;

private:
    const std::string m_list;
    const PathOf m_pathOf;
    FileSystem &m_files;
};

} // namespace corvane
