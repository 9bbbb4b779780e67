#pragma once

#include <array>

#include "core/systems/disk_table.h"

namespace corvane {

namespace linux_disk {

constexpr Color rgb(int red, int green, int blue)
{
    return {red / 255.0, green / 255.0, blue / 255.0};
}

inline constexpr auto places = std::to_array<DiskPlace>({
    {"home",
     {"~"},
     "Your Home Folder",
     "Your documents, apps' data, caches and projects. Scan it and explore it in the Space Map.",
     "house",
     brandA,
     true},
    {"/usr",
     {"/usr"},
     "Installed Software (/usr)",
     "Programs, libraries and documentation from packages. Remove packages you no longer need with your package "
     "manager.",
     "shippingbox",
     rgb(158, 92, 245)},
    {"/usr/local",
     {"/usr/local"},
     "Local Software (/usr/local)",
     "Software that was built or installed by hand, for everyone on this computer.",
     "terminal",
     rgb(230, 173, 41)},
    {"/opt",
     {"/opt"},
     "Optional Software (/opt)",
     "Software installed outside the package manager.",
     "folder.badge.gearshape",
     rgb(153, 161, 176)},
    {"/var/lib/flatpak",
     {"/var/lib/flatpak"},
     "Flatpak Applications",
     "Applications and runtimes installed with Flatpak. App Uninstaller lists them with their data.",
     "app.badge",
     rgb(61, 133, 250)},
    {"/var/lib/snapd",
     {"/var/lib/snapd"},
     "Snap Packages",
     "Applications installed with Snap, and the earlier revisions that it keeps for going back.",
     "cube.box",
     rgb(219, 107, 224)},
    {"/var/lib/docker",
     {"/var/lib/docker"},
     "Containers (/var/lib/docker)",
     "Container images, volumes and build cache. Cleanup has the command that removes unused images.",
     "square.stack.3d.down.right",
     rgb(64, 191, 158)},
    {"/var/lib/containers",
     {"/var/lib/containers"},
     "Containers (/var/lib/containers)",
     "Images and containers that the administrator runs with Podman.",
     "square.stack.3d.down.right",
     rgb(64, 191, 158)},
    {"/var/lib/lxd",
     {"/var/lib/lxd"},
     "Containers (/var/lib/lxd)",
     "System containers and their images.",
     "square.stack.3d.down.right",
     rgb(64, 191, 158)},
    {"/var/lib/libvirt/images",
     {"/var/lib/libvirt/images"},
     "Virtual Machines",
     "Disks of the virtual machines that the system manages.",
     "externaldrive",
     rgb(199, 133, 82)},
    {"/var/cache",
     {"/var/cache"},
     "Package Caches (/var/cache)",
     "Downloaded packages kept after they were installed. Cleanup has the command that removes them.",
     "archivebox",
     rgb(250, 143, 56)},
    {"/var/log",
     {"/var/log"},
     "System Logs (/var/log)",
     "What the system and its services write down. Cleanup has the command that shortens the journal.",
     "doc.text.magnifyingglass",
     rgb(115, 133, 158)},
    {"/var",
     {"/var"},
     "Other System Data (/var)",
     "What services keep while they run: databases, mail, spool files and package lists.",
     "gearshape.2",
     rgb(120, 102, 217)},
    {"/home",
     {"/home", "/root"},
     "Other Users",
     "Home folders of the other people on this computer, the administrator's included.",
     "person.2",
     rgb(33, 173, 189)},
    {"/srv",
     {"/srv"},
     "Served Files (/srv)",
     "What this computer offers to others, such as web sites and shared folders.",
     "internaldrive",
     rgb(56, 179, 115)},
    {"/boot",
     {"/boot"},
     "Boot Files (/boot)",
     "The kernels and the boot loader. To remove an old kernel, remove its package.",
     "wrench.and.screwdriver",
     rgb(153, 161, 176)},
    {"/tmp",
     {"/tmp", "/var/tmp"},
     "Temporary Files",
     "Files that programs need for a while. The system removes them by itself.",
     "clock.arrow.circlepath",
     rgb(242, 194, 46)},
    {"/Applications",
     {"/Applications"},
     "Programs (/Applications)",
     "Programs that were put there for everyone on this computer.",
     "app.badge",
     rgb(61, 133, 250)},
    {"/Library",
     {"/Library"},
     "Shared Data (/Library)",
     "Data that programs share between all users of this computer.",
     "building.columns",
     rgb(158, 92, 245)},
    {"/Users/Shared",
     {"/Users/Shared"},
     "Shared Folder (/Users/Shared)",
     "Files shared between all users of this computer.",
     "person.2",
     rgb(33, 173, 189)},
    {"/",
     {"/"},
     "Other Folders",
     "Everything at the top of the disk that has no row of its own, such as the settings in /etc.",
     "internaldrive",
     rgb(140, 148, 163)},
});

inline constexpr DiskPlace swap{
    "swap",       {},
    "Swap File",  "Memory that the system writes to disk when RAM fills up. It is set aside in advance.",
    "memorychip", rgb(51, 158, 179)};

inline constexpr DiskPlace deletedFiles{
    "deleted",
    {},
    "Deleted Files Still Open",
    "Files that were deleted while a program had them open. The space is free once that program ends or closes them.",
    "clock.arrow.circlepath",
    rgb(204, 122, 82)};

// Query the Docker and Podman services of this computer, even if the user has configured others, and for Podman not the
// storage in the home folder.
inline constexpr auto tools = std::to_array<SizeTool>({
    {"/var/lib/docker",
     "/usr/bin/docker",
     {"--host", "unix:///var/run/docker.sock", "system", "df", "--format", "{{.Size}}"},
     SizeTool::Answer::sizes,
     {"--host", "unix:///var/run/docker.sock", "info", "--format", "{{.DockerRootDir}}"}},
    {"/var/lib/containers",
     "/usr/bin/podman",
     {"--url", "unix:///run/podman/podman.sock", "system", "df", "--format", "{{.Size}}"},
     SizeTool::Answer::sizes,
     {"--url", "unix:///run/podman/podman.sock", "info", "--format", "{{.Store.GraphRoot}}"}},
    {"/var/lib/flatpak", "/usr/bin/flatpak", {"list", "--system", "--columns=size"}, SizeTool::Answer::sizes},
    {"/var/log/journal", "/usr/bin/journalctl", {"--disk-usage"}, SizeTool::Answer::journalUsage},
});

inline constexpr auto snapshotKeepers =
    std::to_array<SnapshotKeeper>({SnapshotKeeper::snapper, SnapshotKeeper::timeshift, SnapshotKeeper::zfs});

} // namespace linux_disk

/// The disk of a Linux system: the file systems of "/" and of the home folder, described by their folders.
inline constexpr DiskTable linuxDisk{
    .places = linux_disk::places,
    .locations = {},
    .tools = linux_disk::tools,
    .swap = &linux_disk::swap,
    .deletedFiles = &linux_disk::deletedFiles,
    .snapshotKeepers = linux_disk::snapshotKeepers,
    .snapshotNoun = "snapshot",
    .snapshotsNoun = "snapshots",
    .revealTitle = "Show in File Manager",
    .wholeDiskDetail = {},
    .leavesHomeToTheScan = false,
    .shortensLegend = true,
    .unmeasuredTitle = "Not Measured",
    .unmeasuredDetail = "Deleted files that programs still hold open, snapshots and the file system's own records.",
    .unmeasuredDetailWithDenied =
        "Folders only the administrator can read ({}), deleted files that programs still hold "
        "open, snapshots and the file system's own records.",
    .grantTitle = {},
    .overcountNote = "The folders add up to {} more than the disk actually uses. That's normal: a file with several "
                     "names, or a copy that shares its storage, is counted more than once here but stored once.",
    .noLayoutNote = {},
    .sizesNote =
        "Sizes are the space files really occupy on disk, so they can differ slightly from the sizes your file "
        "manager shows.",
    .reservedNote = "The file system keeps {} back for the administrator, which counts as neither used nor free.",
};

} // namespace corvane
