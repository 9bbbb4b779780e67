#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "apps/desktop_entry.h"
#include "core/shell.h"
#include "core/stop_flag.h"
#include "platform/file_system.h"

namespace corvane {

/// A package of the system that brings an application along.
struct PackageRecord {
    std::string name;
    std::string version; ///< the application's own, as far as the package tells; empty where unknown
    std::string removeCommand;
    std::int64_t size = 0;             ///< bytes of what it has installed
    std::vector<DesktopEntry> entries; ///< those that are shown, the one that it is known by first; never empty
    /// What its entries start, and the folders of its own that those programs lie in; without links.
    std::vector<std::string> programs = {};
};

/// The packages of Debian's, pacman's and rpm's databases that own a desktop file in "/usr/share/applications". The
/// first two are read directly; of the third, which has several formats, rpm itself is asked through `runTool`. What is
/// no proper record is left out: a command that is made of its name is put into a terminal. Any thread.
[[nodiscard]] std::vector<PackageRecord> readPackages(FileSystem &files, const ToolRunner &runTool,
                                                      const StopFlag &stop = neverStopped);

} // namespace corvane
