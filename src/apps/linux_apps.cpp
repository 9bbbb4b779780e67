#include "apps/linux_apps.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <functional>
#include <map>
#include <set>
#include <utility>

#include "apps/app_description.h"
#include "apps/desktop_entry.h"
#include "apps/icon_search.h"
#include "apps/leftover_rules.h"
#include "apps/linux_data.h"
#include "apps/name_pieces.h"
#include "apps/package_records.h"
#include "core/allocated_size.h"
#include "core/concurrent_perform.h"
#include "core/foreign_sum.h"
#include "core/size_walk.h"
#include "core/words/lower_case.h"
#include "platform/file_reader.h"
#include "platform/path.h"
#include "platform/patient_open.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

using Source = InstalledApp::Source;
using Surroundings = AppInventory::Surroundings;

// This application is never offered.
constexpr std::string_view ownID = CORVANE_APP_ID;

constexpr std::string_view systemFlatpaks = "/var/lib/flatpak";
constexpr std::string_view otherFlatpaks = "/etc/flatpak/installations.d";
constexpr std::string_view snapEntries = "/var/lib/snapd/desktop/applications";
constexpr std::string_view snapImages = "/var/lib/snapd/snaps";
constexpr std::string_view mountedSnaps = "/snap";
constexpr std::array<std::string_view, 2> systemEntries{"/usr/share/applications", "/usr/local/share/applications"};

constexpr std::size_t mostEntries = 10'000; // of one folder; a desktop has hundreds
constexpr std::size_t longestDescription = 1024UL * 1024;
constexpr std::size_t longestVersion = 64;

/// An application that is to be measured.
struct Found {
    InstalledApp app; ///< without size and data
    DataOwner owner;
    std::function<std::int64_t()> size;
};

/// What is in a folder, in the order of the names. Where it is closed to the user, that is noted.
std::vector<std::string> sortedNames(const std::string &folder, const Surroundings &surroundings, bool &areAllKnown)
{
    Expected<std::vector<std::string>> names = namesIn(folder, surroundings.files, surroundings.stop);
    if (!names) {
        areAllKnown = areAllKnown && names.error().isMissing();
        return {};
    }
    std::ranges::sort(*names);
    return *std::move(names);
}

std::vector<DesktopEntry> entriesIn(const std::string &folder, const Surroundings &surroundings)
{
    bool areAllKnown = true;
    std::vector<std::string> names = sortedNames(folder, surroundings, areAllKnown);
    std::erase_if(names, [](const std::string &name) { return !desktopFileID(name); });
    names.resize(std::min(names.size(), mostEntries));
    std::vector<std::optional<DesktopEntry>> read(names.size());
    concurrentPerform(names.size(), [&](std::size_t i) {
        if (!surroundings.stop)
            read[i] = DesktopEntry::read(joined(folder, names[i]), surroundings.files);
    });
    std::vector<DesktopEntry> entries;
    for (std::optional<DesktopEntry> &entry : read) {
        if (entry && entry->isShown && entry->id != ownID)
            entries.push_back(*std::move(entry));
    }
    return entries;
}

// --- Names

bool isAppImage(std::string_view path)
{
    return lowerCase(nameExtension(lastPathComponent(path))) == "appimage";
}

/// A program's file name; of an AppImage without its ending.
std::string_view programName(std::string_view path)
{
    std::string_view name = lastPathComponent(path);
    if (isAppImage(name))
        name.remove_suffix(nameExtension(name).size() + 1);
    return name;
}

/// What is left of a name such as "Chart-1.2.3-x86_64" without the version and the machine behind it.
std::string_view withoutVersion(std::string_view name)
{
    constexpr std::string_view separators = " -_";
    constexpr std::string_view digits = "0123456789";
    constexpr std::array<std::string_view, 6> machines{"x86", "i686", "amd64", "arm64", "aarch64", "linux"};
    const std::string lowered = lowerCase(name);
    for (std::size_t at = name.find_first_of(separators, 1); at != std::string_view::npos;
         at = name.find_first_of(separators, at + 1)) {
        std::string_view part = std::string_view(lowered).substr(at + 1);
        const bool isMachine =
            std::ranges::any_of(machines, [&](std::string_view machine) { return part.starts_with(machine); });
        part.remove_prefix(part.starts_with('v') ? 1 : 0);
        if (isMachine || part.find_first_of(digits) == 0)
            return name.substr(0, at);
    }
    return name;
}

/// What an application goes by, as its entries tell.
DataOwner ownerOf(const std::vector<DesktopEntry> &entries, std::string place)
{
    DataOwner owner{.ids = {}, .names = {}, .flatpak = {}, .snap = {}, .place = std::move(place)};
    std::vector<std::string> names;
    std::set<std::string> ids;
    for (const DesktopEntry &entry : entries) {
        if (isReverseDomainName(entry.id)) {
            ids.insert(lowerCase(entry.id));
            names.push_back(entry.id.substr(entry.id.rfind('.') + 1));
        } else {
            names.push_back(entry.id);
        }
        const std::string_view program = programName(entry.program);
        names.emplace_back(program);
        names.emplace_back(withoutVersion(program));
        names.push_back(entry.windowClass);
    }
    owner.ids.assign(ids.begin(), ids.end());
    owner.names = candidateNames(std::move(names));
    return owner;
}

bool isSeparator(char each)
{
    return std::string_view(" -_.").find(each) != std::string_view::npos;
}

/// Whether a folder bears a name, whatever separates its words: "Signal Deck" and "signal-deck-2.1" are the same, while
/// "Games" is not called after "Game". Letters alone may follow behind a separator.
bool bearsName(std::string_view folder, std::string_view name)
{
    constexpr std::size_t shortest = 3;
    const std::string lowered = lowerCase(folder);
    std::string letters = lowerCase(name);
    std::erase_if(letters, isSeparator);
    if (letters.size() < shortest)
        return false;
    std::size_t taken = 0;
    std::size_t at = 0;
    for (; at < lowered.size() && taken < letters.size(); ++at) {
        if (lowered[at] == letters[taken])
            ++taken;
        else if (!isSeparator(lowered[at]))
            return false;
    }
    const bool isWhole = at == lowered.size() || isSeparator(lowered[at]) || (lowered[at] >= '0' && lowered[at] <= '9');
    return taken == letters.size() && isWhole;
}

/// The version in a name such as "Chart-1.2.3-x86_64.AppImage": the first of its parts that looks like one.
std::string versionIn(std::string_view name)
{
    for (std::size_t start = 0; start < name.size();) {
        const std::size_t end = std::min(name.find_first_of(" -_", start), name.size());
        std::string_view part = name.substr(start, end - start);
        start = end + 1;
        if (part.starts_with('v') || part.starts_with('V'))
            part.remove_prefix(1);
        const bool isNumbered = !part.empty() && part.front() >= '0' && part.front() <= '9';
        if (isNumbered && part.find('.') != std::string_view::npos && part.size() <= longestVersion &&
            isPlainName(part) && !part.ends_with('.'))
            return std::string(part);
    }
    return {};
}

// --- Flatpaks

struct FlatpakFolder {
    std::string path;
    std::string command;
};

AppDescription flatpakDescription(const std::string &app, const std::string &id, FileSystem &files)
{
    const WalkConditions conditions;
    for (const std::string &file :
         {"metainfo/" + id + ".metainfo.xml", "appdata/" + id + ".appdata.xml", "metainfo/" + id + ".appdata.xml"}) {
        const auto text = openPatiently(
            [&] { return files.readFile(joined(app, "current/active/files/share/" + file), longestDescription); });
        if (text)
            return AppDescription::parse(*text);
    }
    return {};
}

/// A Flatpak may be there several times, once for each of its branches: together they are one.
std::optional<Found> flatpakAt(const FlatpakFolder &folder, const std::string &id, const IconSearch &icons,
                               const Surroundings &surroundings)
{
    FileSystem &files = surroundings.files;
    const std::string place = joined(folder.path, "app/" + id);
    const std::string share = joined(folder.path, "exports/share");
    const std::optional<DesktopEntry> entry =
        DesktopEntry::read(joined(share, "applications/" + id + ".desktop"), files);
    if (id == ownID || (entry && !entry->isShown))
        return std::nullopt;
    AppDescription description = flatpakDescription(place, id, files);
    if (description.name.empty())
        description.name = id;
    Found found{
        .app = {.path = place,
                .name = entry ? entry->name : description.name,
                .bundleID = id,
                .version = description.version,
                .lastUsed = {},
                .leftovers = {},
                .source = Source::flatpak,
                .removeCommand = folder.command + id,
                .icon = icons.find(entry ? entry->icon : id)},
        .owner = ownerOf(entry ? std::vector{*entry} : std::vector<DesktopEntry>(), place),
        .size = [place, &surroundings]() -> std::int64_t {
            const WalkConditions conditions;
            auto opened = openPatiently([&] { return surroundings.files.openFolder(place); });
            if (!opened)
                return 0;
            const ExcludedItems none;
            return SizeWalk(SizeWalk::Counting::asTheDisk, none, surroundings.stop).walk(*std::move(opened), place);
        }};
    found.owner.flatpak = lowerCase(id);
    if (std::ranges::find(found.owner.ids, found.owner.flatpak) == found.owner.ids.end())
        found.owner.ids.push_back(found.owner.flatpak);
    return found;
}

// --- Snaps

struct SnapImages {
    std::map<std::string, std::vector<std::string>> byName; ///< the paths of the revisions of each
};

/// "name_revision.snap"
SnapImages snapImagesIn(const std::vector<std::string> &names)
{
    SnapImages images;
    for (const std::string &name : names) {
        const std::size_t revision = name.rfind('_');
        if (name.ends_with(".snap") && revision != std::string::npos && isPlainName(name.substr(0, revision)))
            images.byName[name.substr(0, revision)].push_back(joined(snapImages, name));
    }
    return images;
}

/// The value of a key at the start of a line.
std::string snapVersion(const std::string &snap, FileSystem &files)
{
    const WalkConditions conditions;
    const auto text = openPatiently(
        [&] { return files.readFile(joined(mountedSnaps, snap + "/current/meta/snap.yaml"), longestDescription); });
    constexpr std::string_view key = "\nversion:";
    const std::string all = "\n" + text.value_or(std::string());
    const std::size_t start = all.find(key);
    if (start == std::string::npos)
        return {};
    std::string version = all.substr(start + key.size(), all.find('\n', start + 1) - start - key.size());
    std::erase_if(version, [](char each) { return std::string_view(" \"'\r\t").find(each) != std::string_view::npos; });
    return version.size() <= longestVersion && isPlainName(version) ? version : std::string();
}

/// The picture of a Snap lies in its image, where its entry names it or not.
std::string snapIcon(const std::string &snap, const DesktopEntry &entry, const IconSearch &icons, FileSystem &files)
{
    if (std::string named = icons.find(entry.icon); !named.empty() && files.exists(named))
        return named;
    for (const char *const own : {"icon.png", "icon.svg"}) {
        if (std::string path = joined(mountedSnaps, snap + "/current/meta/gui/" + own); files.exists(path))
            return path;
    }
    return {};
}

std::vector<Found> snaps(const SnapImages &images, const IconSearch &icons, const Surroundings &surroundings)
{
    std::map<std::string, std::vector<DesktopEntry>> entries;
    for (DesktopEntry &entry : entriesIn(std::string(snapEntries), surroundings)) {
        // "name_application.desktop"
        std::string snap = entry.snap.empty() ? entry.id.substr(0, entry.id.find('_')) : entry.snap;
        if (images.byName.contains(snap))
            entries[std::move(snap)].push_back(std::move(entry));
    }
    std::vector<Found> found;
    for (auto &[snap, shown] : entries) {
        const DesktopEntry &entry = shown.front();
        Found each{.app = {.path = entry.path,
                           .name = entry.name,
                           .bundleID = snap,
                           .version = snapVersion(snap, surroundings.files),
                           .lastUsed = {},
                           .leftovers = {},
                           .source = Source::snap,
                           .removeCommand = "sudo snap remove " + snap,
                           .icon = snapIcon(snap, entry, icons, surroundings.files)},
                   .owner = ownerOf(shown, entry.path),
                   .size = [paths = images.byName.at(snap), &surroundings] {
                       ForeignSum sum;
                       std::int64_t size = 0;
                       for (const std::string &path : paths) {
                           if (const Expected<ItemFacts> facts = surroundings.files.facts(path))
                               size += sum.counted(fileSize(*facts));
                       }
                       return size;
                   }};
        each.owner.snap = lowerCase(snap);
        found.push_back(std::move(each));
    }
    return found;
}

// --- Packages

Found foundOf(const PackageRecord &package, const IconSearch &icons)
{
    const DesktopEntry &entry = package.entries.front();
    return {.app = {.path = entry.path,
                    .name = entry.name,
                    .bundleID = entry.id,
                    .version = package.version,
                    .lastUsed = {},
                    .leftovers = {},
                    .source = Source::package,
                    .removeCommand = package.removeCommand,
                    .icon = icons.find(entry.icon),
                    .programs = package.programs},
            .owner = ownerOf(package.entries, entry.path),
            .size = [size = package.size] { return size; }};
}

// --- What lies in the home

/// The path with its links resolved, as it is written beneath the home folder; nothing where it leads elsewhere.
std::optional<std::string> placeInHome(const std::string &path, const Surroundings &surroundings)
{
    const Expected<std::string> real = surroundings.files.realPath(path);
    const std::string &realHome = surroundings.locations.realHome();
    if (!real || !liesBeneath(*real, realHome))
        return std::nullopt;
    return surroundings.locations.home() + real->substr(realHome.size());
}

/// Whether it is machine code. A script that lies in a folder of documents would make an application of that.
bool isMachineCode(const std::string &path, FileSystem &files)
{
    constexpr std::array<char, 4> mark{'\x7f', 'E', 'L', 'F'};
    std::array<std::byte, mark.size()> start{};
    const auto opened = files.openFile(path);
    if (!opened)
        return false;
    const Expected<std::size_t> count = (*opened)->read(0, start);
    return count && *count == start.size() && std::memcmp(start.data(), mark.data(), mark.size()) == 0;
}

/// Whether a folder has beside its "bin" what programs are made with.
bool hasPartsOfPrograms(const std::string &folder, FileSystem &files)
{
    constexpr std::array<std::string_view, 6> parts{"lib", "lib64", "libexec", "share", "jre", "jbr"};
    return std::ranges::any_of(parts, [&](std::string_view part) { return files.exists(joined(folder, part)); });
}

/// Whether something of the user's own lies directly inside, or a repository in one of the folders there.
bool holdsOwnWork(const std::string &folder, const Surroundings &surroundings)
{
    constexpr std::array<std::string_view, 11> ownFolders{"desktop",   "documents", "downloads", "notes",
                                                          "pictures",  "projects",  "saves",     "sketchbook",
                                                          "workspace", "worlds",    "videos"};
    constexpr std::array<std::string_view, 26> ownFiles{
        "avi", "blend", "doc", "docx", "flac", "heic", "ino",  "jpeg", "jpg", "kdbx", "kra", "mkv", "mov",
        "mp3", "mp4",   "odp", "ods",  "odt",  "ppt",  "pptx", "psd",  "raw", "tex",  "xcf", "xls", "xlsx"};
    const auto names = namesIn(folder, surroundings.files, surroundings.stop);
    return !names || std::ranges::any_of(*names, [&](const std::string &name) {
        const std::string lowered = lowerCase(name);
        return std::ranges::find(ownFolders, lowered) != ownFolders.end() ||
               std::ranges::find(ownFiles, nameExtension(lowered)) != ownFiles.end() ||
               surroundings.files.exists(joined(joined(folder, name), ".git"));
    });
}

/// The folder that was unpacked with the program in it: it bears the name of the program or of its entry, so that the
/// folder of a user's own scripts is none. Nothing where its contents may be the user's own as well.
std::optional<std::string> unpackedFolder(const std::string &program, const DesktopEntry &entry, const LinuxData &data,
                                          const Surroundings &surroundings)
{
    constexpr std::array<std::string_view, 17> signsOfWork{
        ".git",        ".hg",          ".svn",    ".bzr",      "Makefile",   "CMakeLists.txt",
        "meson.build", "src",          ".vscode", ".idea",     "Cargo.toml", "pyproject.toml",
        "go.mod",      "configure.ac", "cur",     ".obsidian", ".stfolder"};
    // These hold what many programs, or the user, have brought.
    constexpr std::array<std::string_view, 17> gatheringFolders{
        "applications", "apps",  "bin",      "builds",  "dropbox", "games", "nextcloud", "onedrive", "opt",
        "programs",     "repos", "software", "sources", "sync",    "tools", "work",      "workspace"};
    FileSystem &files = surroundings.files;
    const std::string &home = surroundings.locations.home();
    std::string_view folder = containingFolder(program);
    const bool isInBin = lastPathComponent(folder) == "bin";
    if (isInBin)
        folder = containingFolder(folder);
    if (!liesBeneath(folder, home) || data.touchesDocuments(folder) || data.isDataPlace(folder))
        return std::nullopt;
    if (!isMachineCode(program, files) && !(isInBin && hasPartsOfPrograms(std::string(folder), files)))
        return std::nullopt;
    const std::string_view name = lastPathComponent(folder);
    // Hidden in the home is what programs keep for the user.
    if ((containingFolder(folder) == home && name.starts_with('.')) ||
        std::ranges::find(gatheringFolders, lowerCase(name)) != gatheringFolders.end())
        return std::nullopt;
    const std::string_view file = lastPathComponent(program);
    if (!bearsName(name, entry.name) && !bearsName(name, entry.id) && !bearsName(name, file.substr(0, file.rfind('.'))))
        return std::nullopt;
    std::string path(folder);
    if (surroundings.locations.isProtected(path, files) ||
        std::ranges::any_of(signsOfWork, [&](std::string_view sign) { return files.exists(joined(path, sign)); }) ||
        holdsOwnWork(path, surroundings))
        return std::nullopt;
    return path;
}

std::optional<Found> foundInHome(const DesktopEntry &entry, const LinuxData &data, const IconSearch &icons,
                                 const Surroundings &surroundings)
{
    if (!entry.program.starts_with('/') || entry.isShortcut)
        return std::nullopt;
    const std::optional<std::string> program = placeInHome(entry.program, surroundings);
    if (!program)
        return std::nullopt;
    const Expected<ItemFacts> facts = surroundings.files.facts(*program);
    if (!facts || facts->type != EntryType::file || surroundings.locations.isProtected(*program, surroundings.files))
        return std::nullopt;
    const bool isImage = isAppImage(*program);
    const std::optional<std::string> place = isImage ? program : unpackedFolder(*program, entry, data, surroundings);
    if (!place)
        return std::nullopt;
    const bool isLauncherFree =
        !surroundings.locations.isProtected(entry.path, surroundings.files) && !data.touchesDocuments(entry.path);
    const bool tellsVersion = entry.version.size() <= longestVersion && isPlainName(entry.version);
    const std::string realPlace = surroundings.files.realPath(*place).value_or(*place);
    return Found{
        .app = {.path = *place,
                .name = entry.name,
                .bundleID = entry.id,
                .version = tellsVersion ? entry.version : versionIn(programName(*place)),
                .lastUsed = {},
                .leftovers = {},
                .source = isImage ? Source::appImage : Source::none,
                .launcher = isLauncherFree ? entry.path : std::string(),
                .icon = icons.find(entry.icon),
                .programs = {realPlace}},
        .owner = ownerOf({entry}, *place),
        .size = [path = *place, &surroundings] { return allocatedSize(path, surroundings.files, surroundings.stop); }};
}

/// Those in the home folder; of several entries for one application the first counts. A folder that other programs are
/// started from as well is none.
std::vector<Found> appsInHome(const LinuxData &data, const IconSearch &icons, const Surroundings &surroundings)
{
    const std::string folder =
        joined(LinuxData::dataFolder(surroundings.locations.home(), surroundings.files), "applications");
    const std::vector<DesktopEntry> entries = entriesIn(folder, surroundings);
    std::set<std::string> programs;
    for (const DesktopEntry &entry : entries) {
        if (!entry.program.starts_with('/') || surroundings.stop)
            continue;
        if (std::optional<std::string> program = placeInHome(entry.program, surroundings))
            programs.insert(*std::move(program));
    }
    const auto holdsSeveral = [&](const std::string &place) {
        return std::ranges::count_if(programs, [&](const std::string &each) { return liesBeneath(each, place); }) > 1;
    };
    std::vector<Found> found;
    for (const DesktopEntry &entry : entries) {
        std::optional<Found> each = foundInHome(entry, data, icons, surroundings);
        const auto isKnown = [&](const Found &other) { return other.app.path == each->app.path; };
        if (each && std::ranges::none_of(found, isKnown) && !holdsSeveral(each->app.path))
            found.push_back(*std::move(each));
    }
    return found;
}

// --- All of them

class Inventory {
public:
    explicit Inventory(const Surroundings &surroundings)
        : m_surroundings(surroundings), m_data(surroundings), m_icons(surroundings.files)
    {
    }

    void find(const ToolRunner &runTool)
    {
        const std::string dataFolder = LinuxData::dataFolder(m_surroundings.locations.home(), m_surroundings.files);
        findFlatpaks({{std::string(systemFlatpaks), "flatpak uninstall "},
                      {joined(dataFolder, "flatpak"), "flatpak uninstall --user "}});
        findSnaps();
        for (const PackageRecord &package : readPackages(m_surroundings.files, runTool, m_surroundings.stop)) {
            const auto isOwn = [](const DesktopEntry &entry) { return entry.id == ownID; };
            if (std::ranges::none_of(package.entries, isOwn))
                m_found.push_back(foundOf(package, m_icons));
        }
        std::ranges::move(appsInHome(m_data, m_icons, m_surroundings), std::back_inserter(m_found));
        for (const std::string_view folder : systemEntries)
            noteEntriesIn(std::string(folder));
        noteEntriesIn(std::string(snapEntries));
        noteEntriesIn(joined(dataFolder, "applications"));
        countUses();
    }

    [[nodiscard]] AppInventory::Result measured()
    {
        std::vector<std::optional<InstalledApp>> apps(m_found.size());
        concurrentPerform(m_found.size(), [&](std::size_t i) {
            if (m_surroundings.stop)
                return;
            apps[i] = std::move(m_found[i].app);
            apps[i]->appSize = m_found[i].size();
            apps[i]->leftovers = m_data.dataOf(m_found[i].owner, m_installed);
        });
        return {.apps = largestFirst(std::move(apps)), .orphanGroups = m_data.orphans(m_installed)};
    }

private:
    void findFlatpaks(const std::vector<FlatpakFolder> &folders)
    {
        bool areAllKnown = true;
        // Where there are other places for Flatpaks, what is missing here may lie there.
        if (!sortedNames(std::string(otherFlatpaks), m_surroundings, areAllKnown).empty())
            areAllKnown = false;
        std::unordered_set<std::string> ids;
        for (const FlatpakFolder &folder : folders) {
            for (const std::string &id : sortedNames(joined(folder.path, "app"), m_surroundings, areAllKnown)) {
                if (!isReverseDomainName(id) || m_surroundings.stop)
                    continue;
                ids.insert(lowerCase(id));
                m_installed.ids.push_back(lowerCase(id));
                if (std::optional<Found> found = flatpakAt(folder, id, m_icons, m_surroundings))
                    m_found.push_back(*std::move(found));
            }
        }
        m_installed.areIDsKnown = areAllKnown;
        if (areAllKnown)
            m_installed.flatpaks = std::move(ids);
    }

    void findSnaps()
    {
        bool areAllKnown = true;
        const SnapImages images = snapImagesIn(sortedNames(std::string(snapImages), m_surroundings, areAllKnown));
        std::unordered_set<std::string> names;
        for (const auto &[name, paths] : images.byName)
            names.insert(lowerCase(name));
        for (const std::string &name : sortedNames(std::string(mountedSnaps), m_surroundings, areAllKnown))
            names.insert(lowerCase(name));
        std::ranges::move(snaps(images, m_icons, m_surroundings), std::back_inserter(m_found));
        if (areAllKnown)
            m_installed.snaps = std::move(names);
    }

    void noteEntriesIn(const std::string &folder)
    {
        for (const std::string &name : sortedNames(folder, m_surroundings, m_installed.areIDsKnown)) {
            if (const auto id = desktopFileID(name); id && isReverseDomainName(*id))
                m_installed.ids.push_back(lowerCase(*id));
        }
    }

    void countUses()
    {
        for (const Found &found : m_found) {
            for (const std::string &id : found.owner.ids) {
                ++m_installed.uses[id];
                m_installed.ids.push_back(id);
            }
            if (!found.owner.flatpak.empty())
                ++m_installed.flatpakUses[found.owner.flatpak];
        }
        std::ranges::sort(m_installed.ids);
        m_installed.ids.erase(std::unique(m_installed.ids.begin(), m_installed.ids.end()), m_installed.ids.end());
    }

    const Surroundings &m_surroundings;
    const LinuxData m_data;
    const IconSearch m_icons;
    InstalledNames m_installed;
    std::vector<Found> m_found;
};

} // namespace

AppInventory::Result loadLinuxApps(const Host &host, const ProtectedLocations &locations, Time now,
                                   const ToolRunner &runTool, const StopFlag &stop)
{
    const Surroundings surroundings{.files = host.files, .locations = locations, .now = now, .stop = stop};
    Inventory inventory(surroundings);
    inventory.find(runTool);
    return inventory.measured();
}

AppInventory::Result loadLinuxApps(const Host &host, const ProtectedLocations &locations, Time now,
                                   const StopFlag &stop)
{
    return loadLinuxApps(host, locations, now, Shell::runner(stop), stop);
}

} // namespace corvane
