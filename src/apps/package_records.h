#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "apps/desktop_entry.h"
#include "core/shell.h"
#include "core/stop_flag.h"
#include "platform/file_system.h"

namespace corvane {

/// A system package that contains an application.
struct PackageRecord {
    std::string name;
    std::string version; ///< the application's own version; empty if unknown
    std::string removeCommand;
    std::int64_t size = 0;             ///< bytes installed
    std::vector<DesktopEntry> entries; ///< visible ones, the main entry first; never empty
    /// The programs started by its entries, and the package's own folders that contain them; links resolved.
    std::vector<std::string> programs = {};
};

/// The packages in the databases of dpkg, pacman and rpm that own a desktop file in "/usr/share/applications". The
/// first two are read directly; for rpm, whose database has several formats, `runTool` queries rpm itself. Invalid
/// records are left out, because their names become part of a command that the user runs in a terminal. Any thread.
[[nodiscard]] std::vector<PackageRecord> readPackages(FileSystem &files, const ToolRunner &runTool,
                                                      const StopFlag &stop = neverStopped);

} // namespace corvane
