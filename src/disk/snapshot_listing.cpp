#include "disk/snapshot_listing.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>

#include "core/foreign_sum.h"
#include "core/mount_map.h"
#include "disk/snapshot_date.h"
#include "platform/path.h"
#include "platform/text.h"

namespace corvane {

namespace {

// A longer list is useless, and an endless one must not exhaust memory.
constexpr std::size_t mostSnapshots = 10'000;
constexpr std::size_t mostConfigurations = 32;
constexpr std::size_t mostInfoBytes = 64UL * 1024;
constexpr std::int64_t lastSecond = 253'402'300'799; // of the year 9999

constexpr std::string_view digits = "0123456789";
constexpr std::string_view lettersAndDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";

bool consistsOf(std::string_view text, std::string_view characters)
{
    return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

std::optional<std::int64_t> numberIn(std::string_view text)
{
    std::int64_t number = 0;
    if (!consistsOf(text, digits) || std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc{})
        return std::nullopt;
    return number;
}

LocalSnapshot keptBySnapper(const std::string &configuration, std::int64_t number, std::optional<Time> date)
{
    const std::string numberText = std::to_string(number);
    return {.name = "snapper " + configuration + " " + numberText,
            .date = date,
            .listCommand = "sudo snapper list --all-configs",
            .deleteCommand = "sudo snapper -c " + shellWord(configuration) + " delete " + numberText};
}

std::optional<std::int64_t> snapperNumber(std::string_view text)
{
    const std::optional<std::int64_t> number = numberIn(text);
    return number && *number > 0 ? number : std::nullopt;
}

std::optional<Time> utcDate(std::string_view text)
{
    return timeOf(text, "yyyy-MM-dd HH:mm:ss", WrittenIn::utc);
}

/// The mounts of "/" and of the home folder.
std::vector<const MountedFolder *> mountsOfDisk(const MountMap &mounts, FileSystem &files)
{
    const std::string home = files.homeFolder();
    std::vector<const MountedFolder *> found{mounts.holding("/"), mounts.holding(files.realPath(home).value_or(home))};
    std::erase(found, nullptr);
    return found;
}

} // namespace

std::string shellWord(std::string_view text)
{
    if (consistsOf(text, std::string(lettersAndDigits) + "_./:@%+-"))
        return std::string(text);
    std::string word = "'";
    for (const char byte : text)
        word += byte == '\'' ? std::string("'\\''") : std::string(1, byte);
    return word + "'";
}

std::vector<LocalSnapshot> SnapshotListing::read(std::span<const SnapshotKeeper> keepers) const
{
    std::vector<LocalSnapshot> all;
    for (const SnapshotKeeper keeper : keepers)
        std::ranges::move(keptBy(keeper), std::back_inserter(all));
    return all;
}

std::vector<LocalSnapshot> SnapshotListing::keptBy(SnapshotKeeper keeper) const
{
    switch (keeper) {
    case SnapshotKeeper::timeMachine: {
        const auto listing = m_runTool("/usr/bin/tmutil", {"listlocalsnapshots", "/"});
        return listing ? LocalSnapshot::parse(*listing) : std::vector<LocalSnapshot>();
    }
    case SnapshotKeeper::snapper:
        return snapper();
    case SnapshotKeeper::timeshift:
        return timeshift();
    case SnapshotKeeper::zfs:
        return zfs();
    }
    return {};
}

std::vector<std::string> SnapshotListing::snapperConfigurations(std::string_view table)
{
    std::vector<std::string> names;
    takeLine(table); // column headings
    while (!table.empty() && names.size() < mostConfigurations) {
        std::string_view line = takeLine(table);
        const std::string_view name = takePart(line, ',');
        if (consistsOf(name, std::string(lettersAndDigits) + "_.-") && name.front() != '-')
            names.emplace_back(name);
    }
    return names;
}

std::vector<LocalSnapshot> SnapshotListing::ofSnapper(const std::string &configuration, std::string_view table)
{
    std::vector<LocalSnapshot> snapshots;
    takeLine(table);
    while (!table.empty() && snapshots.size() < mostSnapshots) {
        std::string_view line = takeLine(table);
        if (const auto number = snapperNumber(takePart(line, ',')))
            snapshots.push_back(keptBySnapper(configuration, *number, utcDate(line)));
    }
    return snapshots;
}

std::optional<Time> SnapshotListing::dateInInfo(std::string_view xml)
{
    constexpr std::string_view begin = "<date>";
    const std::size_t start = xml.find(begin);
    if (start == std::string_view::npos)
        return std::nullopt;
    xml.remove_prefix(start + begin.size());
    return utcDate(xml.substr(0, xml.find('<')));
}

std::vector<LocalSnapshot> SnapshotListing::snapper() const
{
    const std::string tool = "/usr/bin/snapper";
    std::vector<LocalSnapshot> snapshots;
    if (!m_files.exists(tool))
        return snapshots;
    // Each configuration can be read by the users listed in it.
    const std::string configurations =
        m_runTool(tool, {"--csvout", "list-configs", "--columns", "config"}).value_or(std::string());
    for (const std::string &name : snapperConfigurations(configurations)) {
        const auto table = m_runTool(tool, {"--csvout", "--utc", "--iso", "-c", name, "list", "--disable-used-space",
                                            "--columns", "number,date"});
        if (table)
            std::ranges::move(ofSnapper(name, *table), std::back_inserter(snapshots));
    }
    if (!snapshots.empty())
        return snapshots;
    // Earlier versions cannot write such tables. If readable, the files beside the snapshots of "/" contain the same.
    const std::string folder = "/.snapshots";
    for (const std::string &name : foldersIn(folder)) {
        const auto number = snapperNumber(name);
        const auto info = number ? m_files.readFile(joined(joined(folder, name), "info.xml"), mostInfoBytes)
                                 : Expected<std::string>(std::string());
        if (number && info)
            snapshots.push_back(keptBySnapper("root", *number, dateInInfo(*info)));
    }
    std::ranges::sort(snapshots, {}, &LocalSnapshot::date);
    return snapshots;
}

std::optional<LocalSnapshot> SnapshotListing::ofTimeshift(std::string_view folder)
{
    const std::optional<Time> date = timeOf(folder, "yyyy-MM-dd_HH-mm-ss", WrittenIn::localTime);
    if (!date)
        return std::nullopt;
    return LocalSnapshot{.name = "timeshift " + std::string(folder),
                         .date = date,
                         .listCommand = "sudo timeshift --list",
                         .deleteCommand = "sudo timeshift --delete --snapshot " + shellWord(folder)};
}

std::vector<LocalSnapshot> SnapshotListing::timeshift() const
{
    std::vector<LocalSnapshot> snapshots;
    const MountMap mounts(m_files.mounts());
    const std::vector<const MountedFolder *> disk = mountsOfDisk(mounts, m_files);
    for (const char *folder :
         {"/timeshift/snapshots", "/timeshift-btrfs/snapshots", "/run/timeshift/backup/timeshift/snapshots",
          "/run/timeshift/backup/timeshift-btrfs/snapshots"}) {
        // A backup on another disk occupies nothing on this one. The mounts show which disk it is without accessing it.
        const MountedFolder *const mount = mounts.holding(folder);
        if (mount == nullptr || std::ranges::find(disk, mount->fileSystem, &MountedFolder::fileSystem) == disk.end())
            continue;
        std::vector<std::string> names = foldersIn(folder);
        std::ranges::sort(names);
        for (const std::string &name : names) {
            std::optional<LocalSnapshot> snapshot = ofTimeshift(name);
            if (snapshot && std::ranges::find(snapshots, snapshot->name, &LocalSnapshot::name) == snapshots.end())
                snapshots.push_back(*std::move(snapshot));
        }
    }
    return snapshots;
}

std::vector<LocalSnapshot> SnapshotListing::ofZfs(std::string_view table, const std::set<std::string> &pools)
{
    std::vector<LocalSnapshot> snapshots;
    while (!table.empty() && snapshots.size() < mostSnapshots) {
        std::string_view line = takeLine(table);
        const std::string_view name = takePart(line, '\t');
        const std::optional<std::int64_t> used = numberIn(takePart(line, '\t'));
        const std::optional<std::int64_t> created = numberIn(line);
        const std::size_t mark = name.find('@');
        // With a name without "@", the command would delete the file system itself.
        if (mark == std::string_view::npos || mark + 1 == name.size() ||
            name.find('@', mark + 1) != std::string_view::npos ||
            !consistsOf(name, std::string(lettersAndDigits) + "_./:@- ") ||
            !pools.contains(std::string(name.substr(0, name.find_first_of("/@")))) || name.front() == '-')
            continue;
        snapshots.push_back({.name = std::string(name),
                             .date = created && *created <= lastSecond
                                         ? std::optional(Time(std::chrono::seconds(*created)))
                                         : std::nullopt,
                             .size = used && isPlausibleSize(*used) ? used : std::nullopt,
                             .listCommand = "zfs list -t snapshot",
                             .deleteCommand = "sudo zfs destroy " + shellWord(name)});
    }
    return snapshots;
}

std::vector<LocalSnapshot> SnapshotListing::zfs() const
{
    std::set<std::string> pools;
    const MountMap mounts(m_files.mounts());
    for (const MountedFolder *mount : mountsOfDisk(mounts, m_files)) {
        if (!mount->pool.empty())
            pools.insert(mount->pool);
    }
    for (const char *tool : {"/usr/sbin/zfs", "/sbin/zfs", "/usr/bin/zfs"}) {
        if (pools.empty() || !m_files.exists(tool))
            continue;
        const auto table = m_runTool(tool, {"list", "-H", "-p", "-t", "snapshot", "-o", "name,used,creation"});
        return table ? ofZfs(*table, pools) : std::vector<LocalSnapshot>();
    }
    return {};
}

std::vector<std::string> SnapshotListing::foldersIn(const std::string &path) const
{
    std::vector<std::string> names;
    if (const auto folder = m_files.openFolder(path)) {
        static_cast<void>((*folder)->list([&](const DirectoryEntry &entry) {
            if (entry.type == EntryType::directory)
                names.emplace_back(entry.name);
            return names.size() < mostSnapshots ? Listing::goOn : Listing::stop;
        }));
    }
    return names;
}

} // namespace corvane
