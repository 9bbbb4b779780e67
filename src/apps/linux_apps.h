#pragma once

#include "apps/app_inventory.h"
#include "core/shell.h"
#include "core/stop_flag.h"
#include "platform/host.h"

namespace corvane {

/// The applications of a Linux system and what they keep in the user's home folder: Flatpaks, Snaps, packages that own
/// a desktop file, and AppImages and folders that were unpacked in the home and that a desktop file of the user's
/// starts. What the menus do not show is left out. Nothing is changed; any thread. `runTool` runs rpm where packages
/// are in its database, and nothing else. Once stopped, what has been measured so far.
[[nodiscard]] AppInventory::Result loadLinuxApps(const Host &host, const ProtectedLocations &locations, Time now,
                                                 const ToolRunner &runTool, const StopFlag &stop = neverStopped);

/// The same with the tools of this computer.
[[nodiscard]] AppInventory::Result loadLinuxApps(const Host &host, const ProtectedLocations &locations, Time now,
                                                 const StopFlag &stop = neverStopped);

} // namespace corvane
