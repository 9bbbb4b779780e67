#pragma once

#include "apps/app_inventory.h"
#include "core/shell.h"
#include "core/stop_flag.h"
#include "platform/host.h"

namespace corvane {

/// The applications of a Linux system and their data in the user's home folder: Flatpaks, Snaps, packages that own a
/// desktop file, and AppImages and unpacked folders in the home folder that one of the user's desktop files starts.
/// Leaves out applications hidden from the menus. Changes nothing; any thread. `runTool` only runs rpm, if packages are
/// in its database. When stopped, what has been measured so far.
[[nodiscard]] AppInventory::Result loadLinuxApps(const Host &host, const ProtectedLocations &locations, Time now,
                                                 const ToolRunner &runTool, const StopFlag &stop = neverStopped);

/// The same with the tools of this computer.
[[nodiscard]] AppInventory::Result loadLinuxApps(const Host &host, const ProtectedLocations &locations, Time now,
                                                 const StopFlag &stop = neverStopped);

} // namespace corvane
