#include "disk/disk_accountant.h"

#include <algorithm>

#include <fmt/format.h>

#include "core/allocated_size.h"
#include "core/checked_add.h"
#include "core/foreign_sum.h"
#include "core/path_guard.h"
#include "core/scanner.h"
#include "core/shell.h"
#include "core/systems/disk_table.h"
#include "core/systems/mac_disk.h"
#include "core/volume_info.h"
#include "core/words/figures.h"
#include "disk/disk_places.h"
#include "disk/snapshot_listing.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

// Items up to this size get no row of their own.
constexpr std::int64_t segmentLimit = 50'000'000;
constexpr std::size_t childrenShown = 3;

// Snapshot lists are short, and a service that does not answer would block the whole breakdown.
constexpr ProcessLimits snapshotToolLimits{.output = 4'000'000, .time = std::chrono::seconds(10)};

constexpr Color hiddenColor{0.93, 0.42, 0.4};

using Kind = BreakdownSegment::Kind;

bool hasRole(const APFSVolumeInfo &volume, std::string_view role)
{
    return std::ranges::find(volume.roles, role) != volume.roles.end();
}

bool isSupportVolume(const APFSVolumeInfo &volume)
{
    constexpr std::array<std::string_view, 7> roles{"Preboot",  "Recovery", "Update",   "xART",
                                                    "Hardware", "Prelogin", "Installer"};
    return std::ranges::any_of(roles, [&volume](std::string_view role) { return hasRole(volume, role); });
}

/// Whether the tool's figures are consistent for one container; otherwise the layout counts as unreadable.
bool addsUp(const APFSContainerInfo &container)
{
    std::int64_t used = 0;
    return isPlausibleSize(container.ceiling) && isPlausibleSize(container.free) &&
           std::ranges::all_of(container.volumes,
                               [&used](const APFSVolumeInfo &volume) { return addForeign(used, volume.used); });
}

std::string lastComponent(const std::string &path)
{
    return path.substr(path.rfind('/') + 1);
}

constexpr const char *homeDetail =
    "Your documents, apps' data, caches and projects. Explore it in the Space Map, or tidy it in Cleanup.";
constexpr const char *openMapTitle = "Open Space Map";

/// Builds one breakdown step by step; `remainder` is the used space not yet explained by a segment.
class Composer {
public:
    Composer(const ScanContext &scan, const DiskAccountant::Sources &sources)
        : m_scan(scan), m_sources(sources), m_home(standardizedPath(sources.home, sources.home))
    {
        if (scan.rootPath)
            m_root = standardizedPath(*scan.rootPath, sources.home);
    }

    DiskBreakdown compose()
    {
        m_result.system = m_sources.system;
        const VolumeFacts volume = withoutImplausibleFigures(m_sources.volume());
        const std::int64_t total = volume.total.value_or(0);
        const std::int64_t available = volume.available.value_or(0);
        const std::int64_t important = volume.availableForImportantUse.value_or(available);
        auto container = m_sources.container(total);
        if (container && !addsUp(*container))
            container.reset();

        m_result.volumeName = volume.name.value_or("Macintosh HD");
        m_result.fromAPFS = container.has_value();
        m_result.total = container ? container->ceiling : total;
        m_result.free = container ? container->free : available;
        m_result.reserved = volume.reserved.value_or(0);
        m_result.hasScan = m_root.has_value();
        m_result.scanIsPartial = m_root && m_scan.isPartial;

        if (container)
            addVolumes(*container);
        else
            m_remainder = std::max<std::int64_t>(0, checkedSubtract(total, available));
        addScanned();
        addLocations();
        addPlaces();
        m_result.overcount = std::max<std::int64_t>(0, checkedSubtract(0, m_remainder));
        m_remainder = std::max<std::int64_t>(0, m_remainder);
        addPurgeable(std::max<std::int64_t>(0, checkedSubtract(important, available)));

        std::ranges::stable_sort(m_result.segments, std::ranges::greater(), &BreakdownSegment::size);
        return std::move(m_result);
    }

private:
    void add(BreakdownSegment segment) { m_result.segments.push_back(std::move(segment)); }

    void explain(std::int64_t size) { m_remainder = checkedSubtract(m_remainder, size); }

    [[nodiscard]] bool isWholeDisk() const { return m_root && *m_root == "/"; }

    /// Whether the places cover the whole disk; they are then more informative than a single scanned segment.
    [[nodiscard]] bool placesReplaceScan() const
    {
        return isWholeDisk() && m_sources.places && !m_table.places.empty();
    }

    void addVolumes(const APFSContainerInfo &container)
    {
        std::int64_t support = 0;
        for (const APFSVolumeInfo &volume : container.volumes) {
            if (hasRole(volume, "System")) {
                add(DiskPlaces::segmentOf(mac_disk::systemVolume, Kind::system, volume.used));
            } else if (hasRole(volume, "Data")) {
                m_remainder = checkedAdd(m_remainder, volume.used);
            } else if (hasRole(volume, "VM")) {
                add(DiskPlaces::segmentOf(mac_disk::swapVolume, Kind::vm, volume.used));
            } else if (isSupportVolume(volume)) {
                support = checkedAdd(support, volume.used);
            } else {
                BreakdownSegment segment = DiskPlaces::segmentOf(mac_disk::otherVolume, Kind::otherVolume, volume.used);
                segment.id += volume.name;
                segment.title = volume.name;
                add(std::move(segment));
            }
        }
        if (support > 0)
            add(DiskPlaces::segmentOf(mac_disk::supportVolumes, Kind::support, support));
    }

    void addScanned()
    {
        if (!m_root || placesReplaceScan())
            return;
        BreakdownSegment segment{"scanned",
                                 Kind::scanned,
                                 {},
                                 {},
                                 {},
                                 brandA,
                                 m_scan.rootSize,
                                 m_scan.topChildren,
                                 BreakdownAction{BreakdownAction::Kind::openMap, {}},
                                 openMapTitle};
        if (isWholeDisk()) {
            segment.size = std::max<std::int64_t>(0, checkedSubtract(m_scan.rootSize, m_scan.systemDirSize));
            segment.title = "Files Corvane Scanned";
            segment.detail = m_table.wholeDiskDetail;
            segment.symbol = "internaldrive";
        } else {
            segment.title = *m_root == m_home ? "Your Home Folder" : "Scanned: " + lastComponent(*m_root);
            segment.detail = homeDetail;
            segment.symbol = "house";
        }
        explain(segment.size);
        add(std::move(segment));
    }

    void addLocations()
    {
        if (isWholeDisk())
            return;
        for (const DiskLocation &location : m_table.locations) {
            const std::string path(location.path);
            if (m_root && isOrLiesBeneath(path, *m_root))
                continue;
            if (!m_sources.exists(path))
                continue;
            auto [size, children] = m_sources.measure(path, m_root);
            if (size <= segmentLimit)
                continue;
            explain(size);
            add({path, Kind::measured, std::string(location.title), std::string(location.detail),
                 std::string(location.symbol), location.color, size, std::move(children),
                 BreakdownAction{BreakdownAction::Kind::reveal, path}, std::string(m_table.revealTitle)});
        }
    }

    void addPlaces()
    {
        if (!m_sources.places)
            return;
        const bool replacesScan = placesReplaceScan();
        auto [segments, denied] = m_sources.places(replacesScan ? std::nullopt : m_root);
        m_denied = replacesScan ? denied : checkedAdd(deniedToScan(), denied);
        for (BreakdownSegment &segment : segments) {
            if (segment.size <= segmentLimit)
                continue;
            explain(segment.size);
            if (replacesScan && segment.action && segment.action->kind == BreakdownAction::Kind::scanHome) {
                segment.detail = homeDetail;
                segment.action = BreakdownAction{BreakdownAction::Kind::openMap, {}};
                segment.actionTitle = openMapTitle;
            }
            add(std::move(segment));
        }
    }

    void addPurgeable(std::int64_t purgeable)
    {
        m_result.purgeable = purgeable;
        m_result.snapshots = m_sources.snapshots();
        const std::int64_t shown = std::min(purgeable, m_remainder);
        if (shown > segmentLimit) {
            BreakdownSegment segment = DiskPlaces::segmentOf(mac_disk::purgeableSpace, Kind::purgeable, shown);
            if (const auto count = static_cast<std::int64_t>(m_result.snapshots.size()); count > 0)
                segment.detail +=
                    fmt::format(" {} local Time Machine {} found.", count, plural(count, "snapshot", "snapshots"));
            add(std::move(segment));
        }
        const std::int64_t hidden = checkedSubtract(m_remainder, shown);
        if (hidden > segmentLimit)
            addHidden(hidden);
    }

    void addHidden(std::int64_t size)
    {
        BreakdownSegment segment{"hidden", Kind::hidden, {}, {}, {}, hiddenColor, size, {}, {}, {}};
        if (!m_root && m_table.leavesHomeToTheScan) {
            segment.title = "Not Scanned Yet";
            segment.symbol = "questionmark.folder";
            segment.detail = "Not scanned yet. Scan your home folder and most of this turns into named folders you "
                             "can explore.";
            segment.action = BreakdownAction{BreakdownAction::Kind::scanHome, {}};
            segment.actionTitle = "Scan Home Folder";
        } else {
            segment.title = m_table.unmeasuredTitle;
            segment.symbol = "eye.slash";
            if (m_table.leavesHomeToTheScan && *m_root != "/" && *m_root != m_home && !liesBeneath(m_home, *m_root))
                segment.detail = "Includes the parts of your home folder outside this scan. ";
            segment.detail += unmeasuredDetail();
            if (m_scan.isPartial)
                segment.detail += " The scan was stopped, so most of this was not scanned.";
            if (!m_scan.hasFullDiskAccess && !m_table.grantTitle.empty()) {
                segment.action = BreakdownAction{BreakdownAction::Kind::fullDiskAccess, {}};
                segment.actionTitle = m_table.grantTitle;
            }
        }
        add(std::move(segment));
    }

    /// Folders that the scan could not read. A Mac's text counts only those that are in the tree.
    [[nodiscard]] std::int64_t deniedToScan() const
    {
        return m_table.unmeasuredDetailWithDenied.empty() ? m_scan.unreadableCount
                                                          : checkedAdd(m_scan.unreadableCount, m_scan.deniedCount);
    }

    /// What may occupy the space that no segment explains.
    [[nodiscard]] std::string unmeasuredDetail() const
    {
        if (m_denied == 0)
            return std::string(m_table.unmeasuredDetail);
        if (!m_table.unmeasuredDetailWithDenied.empty())
            return fmt::format(fmt::runtime(m_table.unmeasuredDetailWithDenied), formatCount(m_denied));
        return std::string(m_table.unmeasuredDetail) + fmt::format(" Corvane couldn't open {} {} during the scan.",
                                                                   m_denied, plural(m_denied, "folder", "folders"));
    }

    const ScanContext &m_scan;
    const DiskAccountant::Sources &m_sources;
    const DiskTable &m_table = diskTableOf(m_sources.system);
    const std::string m_home;
    std::int64_t m_denied = deniedToScan(); // folders that could not be read
    std::optional<std::string> m_root;
    std::int64_t m_remainder = 0;
    DiskBreakdown m_result;
};

} // namespace

const std::array<DiskLocation, 5> DiskAccountant::locations = mac_disk::locations;

DiskBreakdown DiskAccountant::compute(const ScanContext &scan, const Sources &sources)
{
    return Composer(scan, sources).compose();
}

DiskBreakdown DiskAccountant::compute(const ScanContext &scan, const Host &host, const StopFlag &stop)
{
    Sources sources;
    sources.volume = [&host] { return startupDiskFacts(host); };
    sources.container = [&stop](std::int64_t total) { return APFSContainerInfo::load(total, stop); };
    sources.snapshots = [&host, &stop] { return loadSnapshots(host, stop); };
    sources.exists = [&host](const std::string &path) { return host.files.exists(path); };
    sources.measure = [&host, &stop](const std::string &path, const std::optional<std::string> &excluding) {
        return measure(path, excluding, host.files, stop);
    };
    DiskPlaces places(diskTableOf(host.files.systemKind()), host, Shell::runner(stop), stop);
    sources.places = [&places](const std::optional<std::string> &root) {
        std::vector<BreakdownSegment> segments = places.measure(root);
        return std::pair(std::move(segments), places.denied());
    };
    sources.home = host.files.homeFolder();
    sources.system = host.files.systemKind();
    return compute(scan, sources);
}

DiskAccountant::Measurement DiskAccountant::measure(const std::string &path,
                                                    const std::optional<std::string> &excluding, FileSystem &files,
                                                    const StopFlag &stop)
{
    const WalkConditions conditions;
    std::vector<std::string> names;
    auto folder = files.openFolder(path);
    const auto listed = !folder ? tl::unexpected(folder.error()) : (*folder)->list([&](const DirectoryEntry &entry) {
        names.emplace_back(entry.name);
        return stop || names.size() > Scanner::keptEntriesLimit ? Listing::stop : Listing::goOn;
    });
    if (!listed)
        return {allocatedSize(path, files, stop), {}};

    std::int64_t total = 0;
    std::vector<NamedSize> children;
    for (std::string &name : names) {
        const std::string child = joined(path, name);
        // Omit a child that contains the scanned folder entirely rather than count it in part.
        if (excluding && isOrLiesBeneath(*excluding, child))
            continue;
        const std::int64_t size = allocatedSize(child, files, stop);
        if (size > 0 && addForeign(total, size))
            children.push_back({std::move(name), size});
    }
    std::ranges::stable_sort(children, std::ranges::greater(), &NamedSize::size);
    children.resize(std::min(children.size(), childrenShown));
    return {total, std::move(children)};
}

std::vector<LocalSnapshot> DiskAccountant::loadSnapshots(const Host &host, const StopFlag &stop)
{
    const auto run = [&stop](const std::string &tool, const std::vector<std::string> &arguments) {
        return stop ? std::nullopt : Shell::run(tool, arguments, stop, snapshotToolLimits);
    };
    return SnapshotListing(host.files, run).read(diskTableOf(host.files.systemKind()).snapshotKeepers);
}

} // namespace corvane
