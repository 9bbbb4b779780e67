#include "core/scan_bounds.h"

#include <algorithm>
#include <array>
#include <set>

#include "core/mount_map.h"
#include "core/systems/system_table.h"
#include "platform/path.h"
#include "platform/protected_places.h"

namespace corvane {

namespace {

/// Decides which mounts below a walk's root are entered. Paths have every link resolved.
class MountChoice {
public:
    MountChoice(const MountMap &mounts, std::string root, const std::string &home)
        : m_mounts(mounts), m_root(std::move(root)), m_holding(mounts.holding(m_root))
    {
        if (m_holding == nullptr)
            return;
        m_wanted = {m_holding->fileSystem};
        const std::array<const MountedFolder *, 2> disk{mounts.holding("/"), mounts.holding(home)};
        const auto isOfDisk = [&](const MountedFolder *mount) {
            return mount != nullptr && mount->fileSystem == m_holding->fileSystem;
        };
        if (std::ranges::any_of(disk, isOfDisk)) {
            for (const MountedFolder *mount : disk) {
                if (mount != nullptr)
                    m_wanted.push_back(mount->fileSystem);
            }
        }
        choose(disk[1]);
    }

    /// The paths that are not entered.
    [[nodiscard]] const std::vector<std::string> &skipped() const { return m_skipped; }
    /// The root first, or after the home folder.
    [[nodiscard]] const std::vector<MountedFolder> &entered() const { return m_entered; }

private:
    void choose(const MountedFolder *home)
    {
        const MountedFolder root{m_root, m_holding->fileSystem, moved(m_root, m_holding->path, m_holding->shown)};
        const std::vector<const MountedFolder *> inside = m_mounts.beneath(m_root);
        // If the home folder is visible in two places, show it at the path that its user knows.
        const bool homeComesFirst = home != nullptr && isReached(*home, inside) && !covers(*home, root);
        if (homeComesFirst)
            enter(*home);
        enter(root);
        for (const MountedFolder *mount : inside) {
            const bool isOutOfReach = std::ranges::any_of(
                m_skipped, [&](const std::string &skipped) { return isOrLiesBeneath(mount->path, skipped); });
            if (isOutOfReach || (homeComesFirst && mount == home))
                continue;
            const bool isShownAlready =
                std::ranges::any_of(m_entered, [&](const MountedFolder &entered) { return covers(entered, *mount); });
            if (!isWanted(*mount) || isShownAlready)
                m_skipped.push_back(mount->path);
            else
                enter(*mount);
        }
    }

    void enter(const MountedFolder &mount)
    {
        for (const MountedFolder &other : m_entered) {
            if (!covers(mount, other))
                continue;
            std::string twice = moved(other.shown, mount.shown, mount.path);
            const MountedFolder *const there = m_mounts.holding(twice);
            if (there != nullptr && isOrLiesBeneath(mount.path, there->path))
                m_skipped.push_back(std::move(twice));
        }
        m_entered.push_back(mount);
    }

    /// Whether the contents of `other` are visible in `mount` as well.
    static bool covers(const MountedFolder &mount, const MountedFolder &other)
    {
        return mount.fileSystem == other.fileSystem && isOrLiesBeneath(other.shown, mount.shown);
    }

    [[nodiscard]] bool isWanted(const MountedFolder &mount) const
    {
        return std::ranges::find(m_wanted, mount.fileSystem) != m_wanted.end();
    }

    /// Whether a mount is one of those inside the root and every mount on the way to it is entered.
    [[nodiscard]] bool isReached(const MountedFolder &mount, const std::vector<const MountedFolder *> &inside) const
    {
        return std::ranges::find(inside, &mount) != inside.end() &&
               std::ranges::all_of(inside, [&](const MountedFolder *around) {
                   return !isOrLiesBeneath(mount.path, around->path) || isWanted(*around);
               });
    }

    const MountMap &m_mounts;
    const std::string m_root;
    const MountedFolder *const m_holding;
    std::vector<std::uint64_t> m_wanted; // file systems
    std::vector<MountedFolder> m_entered;
    std::vector<std::string> m_skipped;
};

/// Where snapper keeps a volume's snapshots.
constexpr std::string_view snapshotsFolder = ".snapshots";

/// Whether a folder is a volume of its own inside another one. Data shared by its snapshots is stored once, so counting
/// the snapshots would exceed the disk's capacity many times over.
bool isVolumeInside(const std::string &path, const std::string &volume, FileSystem &files)
{
    const auto inner = files.facts(path);
    const auto outer = files.facts(volume);
    return inner && outer && inner->type == EntryType::directory && inner->identity.isKnown() &&
           outer->identity.isKnown() && inner->identity.device != outer->identity.device;
}

} // namespace

ScanBounds ScanBounds::of(const std::string &root, FileSystem &files, ScanFilter::Mounts mounts)
{
    ScanBounds bounds;
    const SystemTable &system = systemTableOf(files.systemKind());
    for (const std::string_view path : system.skippedFolders)
        bounds.skip(path);
    for (const std::string &path : systemVirtualFolders())
        bounds.skip(path);
    if (system.isMadeOfMounts)
        bounds.skipOtherMounts(root, files);
    if (mounts == ScanFilter::Mounts::none)
        bounds.skipEveryMount(root, files);
    return bounds;
}

std::span<const std::string> ScanBounds::skippedIn(std::string_view folder) const
{
    const auto found = folder.size() > m_longest ? m_names.end() : m_names.find(folder);
    return found == m_names.end() ? std::span<const std::string>{} : std::span(found->second);
}

std::vector<std::string> ScanBounds::skippedPaths() const
{
    std::vector<std::string> paths;
    for (const auto &[folder, names] : m_names) {
        for (const std::string &name : names)
            paths.push_back(joined(folder, name));
    }
    return paths;
}

void ScanBounds::skip(std::string_view path)
{
    const std::string_view around = containingFolder(path);
    m_longest = std::max(m_longest, around.size());
    m_names[std::string(around)].emplace_back(lastPathComponent(path));
}

void ScanBounds::skipEveryMount(const std::string &root, FileSystem &files)
{
    const std::string realRoot = files.realPath(root).value_or(root);
    for (const std::string &point : files.mountPoints().value_or(std::vector<std::string>())) {
        if (liesBeneath(point, realRoot))
            skip(moved(point, realRoot, root));
    }
}

void ScanBounds::skipOtherMounts(const std::string &root, FileSystem &files)
{
    const MountMap mounts(files.mounts());
    if (mounts.isEmpty())
        return;
    const std::string home = files.homeFolder();
    const std::string realRoot = files.realPath(root).value_or(root);
    const std::string realHome = files.realPath(home).value_or(home);
    const MountChoice choice(mounts, realRoot, realHome);
    for (const std::string &path : choice.skipped())
        skip(moved(path, realRoot, root));
    std::set<std::string> volumes{realHome, std::string(containingFolder(realHome))};
    std::set<std::uint64_t> fileSystems;
    for (const MountedFolder &mount : choice.entered()) {
        volumes.insert(mount.path);
        fileSystems.insert(mount.fileSystem);
    }
    for (const std::string &volume : volumes) {
        const std::string path = joined(volume, snapshotsFolder);
        const MountedFolder *const around = mounts.holding(volume);
        const MountedFolder *const mount = mounts.holding(path);
        // Do not touch a folder on a file system that is not entered.
        if (liesBeneath(path, realRoot) && around != nullptr && mount->fileSystem == around->fileSystem &&
            fileSystems.contains(around->fileSystem) && isVolumeInside(path, volume, files))
            skip(moved(path, realRoot, root));
    }
}

} // namespace corvane
