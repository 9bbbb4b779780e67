#include "apps/linux_data.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

#include "apps/leftover_rules.h"
#include "apps/name_pieces.h"
#include "core/allocated_size.h"
#include "core/systems/home_folders.h"
#include "core/words/lower_case.h"
#include "platform/path.h"
#include "platform/patient_open.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

using Item = FolderListing::Item;
using Match = Leftover::Match;

struct DataPlace {
    std::string_view usual; ///< relative to the home folder, unless configured otherwise
    std::string_view label;
};

constexpr std::string_view usualData = ".local/share";

constexpr std::array<DataPlace, 4> dataPlaces{
    {{".config", "Settings"}, {".cache", "Cache"}, {usualData, "Data"}, {".local/state", "State"}}};

/// The parts of a Flatpak's own folder; anything else there is data as well.
constexpr std::array<DataPlace, 2> flatpakParts{{{"config", "Settings"}, {"cache", "Cache"}}};

/// The user's own documents as well. Not a main folder for Cleanup, because a developer may have moved caches into it.
constexpr std::string_view projectsFolder = "Projects";

/// Programs that start others, and folders shared by many programs.
constexpr std::array<std::string_view, 40> sharedNames{"applications", "autostart",  "bash",
                                                       "client",       "containers", "dbus-1",
                                                       "dconf",        "desktop",    "desktop-directories",
                                                       "flatpak",      "fontconfig", "fonts",
                                                       "gnome",        "gtk-2.0",    "gtk-3.0",
                                                       "gtk-4.0",      "gtk-launch", "icons",
                                                       "java",         "keyrings",   "mime",
                                                       "mono",         "node",       "perl",
                                                       "pkexec",       "plasma",     "pulse",
                                                       "python",       "python2",    "python3",
                                                       "ruby",         "snap",       "sounds",
                                                       "sudo",         "systemd",    "themes",
                                                       "thumbnails",   "trash",      "wine",
                                                       "xdg-open"};

bool isShared(std::string_view name)
{
    return std::ranges::find(sharedNames, name) != sharedNames.end() || name.starts_with("python3.");
}

std::string placeOf(std::string_view usual, const std::string &home, FileSystem &files)
{
    const std::optional<OwnPlace> own = files.ownPlaceFor(usual);
    return own ? own->path : joined(home, usual);
}

} // namespace

std::string LinuxData::dataFolder(const std::string &home, FileSystem &files)
{
    return placeOf(usualData, home, files);
}

LinuxData::LinuxData(const SearchContext &context) : m_context(context)
{
    FileSystem &files = context.files;
    const std::string &home = context.locations.home();
    std::vector<std::string> documents = files.userFolders(); // in a home folder, and by name in that of a Snap
    for (const std::string_view folder : mainFoldersOfHome)
        documents.push_back(joined(home, folder));
    documents.push_back(joined(home, projectsFolder));
    for (const std::string &folder : documents)
        m_documentNames.emplace_back(lastPathComponent(folder));
    // The real path of a folder behind a link may also be written relative to the home folder's other path.
    const std::string &realHome = context.locations.realHome();
    for (std::string &folder : documents) {
        std::string real = files.realPath(folder).value_or(folder);
        if (liesBeneath(real, realHome))
            m_documents.push_back(home + real.substr(realHome.size()));
        m_documents.push_back(std::move(folder));
        m_documents.push_back(std::move(real));
    }

    const auto list = [&](std::string folder, std::string_view label) {
        FolderListing listing(namesIn(folder, files, context.stop).value_or(std::vector<std::string>()));
        return Place{std::move(folder), label, std::move(listing)};
    };
    for (const DataPlace &place : dataPlaces) {
        std::string folder = placeOf(place.usual, home, files);
        if (isUsable(folder) && std::ranges::find(m_places, folder, &Place::folder) == m_places.end())
            m_places.push_back(list(std::move(folder), place.label));
    }
    const auto listUsable = [&](std::string folder, std::string_view label) {
        return isUsable(folder) ? list(std::move(folder), label) : Place{std::move(folder), label, {}};
    };
    m_flatpaks = listUsable(joined(home, ".var/app"), "Data");
    m_overrides = listUsable(joined(dataFolder(home, files), "flatpak/overrides"), "Permissions");
    m_snaps = listUsable(joined(home, "snap"), "Data");
}

/// False if a variable points to the home folder or one of the user's own folders, which contains more than
/// applications' data.
bool LinuxData::isUsable(const std::string &folder) const
{
    const ProtectedLocations &locations = m_context.locations;
    const std::string real = m_context.files.realPath(folder).value_or(folder);
    return !isOrLiesBeneath(locations.home(), folder) && !isOrLiesBeneath(locations.realHome(), real) &&
           !touchesDocuments(folder) && !touchesDocuments(real);
}

bool LinuxData::touchesDocuments(std::string_view path) const
{
    return std::ranges::any_of(m_documents, [&](const std::string &folder) {
        return isOrLiesBeneath(path, folder) || liesBeneath(folder, path);
    });
}

bool LinuxData::isDataPlace(std::string_view path) const
{
    const auto meets = [&](const Place &place) {
        return isOrLiesBeneath(path, place.folder) || liesBeneath(place.folder, path);
    };
    return std::ranges::any_of(m_places, meets) || meets(m_flatpaks) || meets(m_snaps);
}

std::optional<Leftover> LinuxData::folderAt(const std::string &path, std::string_view label, Match match) const
{
    if (m_context.stop || touchesDocuments(path))
        return std::nullopt;
    std::optional<Leftover> leftover = leftoverAt(path, label, match, m_context);
    return leftover && leftover->kind != FileNode::Kind::file ? leftover : std::nullopt;
}

std::vector<Leftover> LinuxData::flatpakData(const std::string &id, bool isShared) const
{
    const Match usualMatch = isShared ? Match::name : Match::exact;
    std::vector<Leftover> found;
    const auto take = [&](std::string path, std::string_view label, Match match) {
        if (m_context.stop || touchesDocuments(path))
            return;
        if (std::optional<Leftover> leftover = leftoverAt(std::move(path), label, match, m_context))
            found.push_back(*std::move(leftover));
    };
    for (const Item &item : m_flatpaks.listing.named(id)) {
        const std::string folder = joined(m_flatpaks.folder, item.name);
        // A link may lead to any of the user's files.
        const Expected<ItemFacts> facts = m_context.files.facts(folder);
        if (!facts || facts->type != EntryType::directory)
            continue;
        for (const std::string &name :
             namesIn(folder, m_context.files, m_context.stop).value_or(std::vector<std::string>())) {
            const auto *const part = std::ranges::find(flatpakParts, name, &DataPlace::usual);
            take(joined(folder, name), part == flatpakParts.end() ? m_flatpaks.label : part->label,
                 isFilledDocumentFolder(folder, name) ? Match::name : usualMatch);
        }
    }
    for (const Item &item : m_overrides.listing.named(id))
        take(joined(m_overrides.folder, item.name), m_overrides.label, usualMatch);
    return found;
}

bool LinuxData::isFilledDocumentFolder(const std::string &folder, std::string_view name) const
{
    if (std::ranges::find(m_documentNames, name) == m_documentNames.end())
        return false;
    const std::string path = joined(folder, name);
    const Expected<ItemFacts> facts = m_context.files.facts(path);
    if (!facts || facts->type != EntryType::directory)
        return false;
    const auto inside = namesIn(path, m_context.files, m_context.stop);
    return !inside || !inside->empty();
}

/// Sandboxed programs may use their folder as home, so users keep documents in it.
bool LinuxData::holdsDocuments(const std::string &folder) const
{
    return std::ranges::any_of(m_documentNames,
                               [&](const std::string &name) { return isFilledDocumentFolder(folder, name); });
}

bool LinuxData::snapHoldsDocuments(const std::string &snapFolder) const
{
    FileSystem &files = m_context.files;
    const auto revisions = namesIn(snapFolder, files, m_context.stop);
    return !revisions || std::ranges::any_of(*revisions, [&](const std::string &revision) {
        const std::string folder = joined(snapFolder, revision);
        const Expected<ItemFacts> facts = files.facts(folder);
        return facts && facts->type == EntryType::directory && holdsDocuments(folder);
    });
}

std::vector<Leftover> LinuxData::dataOf(const DataOwner &owner, const InstalledNames &installed) const
{
    std::vector<Leftover> found;
    std::unordered_set<std::string> taken;
    const auto add = [&](std::optional<Leftover> leftover) {
        if (!leftover || isOrLiesBeneath(leftover->path, owner.place) || isOrLiesBeneath(owner.place, leftover->path) ||
            !taken.insert(leftover->path).second)
            return;
        leftover->size = allocatedSize(leftover->path, m_context.files, m_context.stop);
        found.push_back(*std::move(leftover));
    };
    const auto addAll = [&](const std::string &name, Match match) {
        for (const Place &place : m_places) {
            for (const Item &item : place.listing.named(name))
                add(folderAt(joined(place.folder, item.name), place.label, match));
        }
    };
    const auto isUsedTwice = [](const std::unordered_map<std::string, std::size_t> &counts, const std::string &id) {
        const auto uses = counts.find(id);
        return uses != counts.end() && uses->second > 1;
    };

    if (!owner.flatpak.empty()) {
        for (Leftover &leftover : flatpakData(owner.flatpak, isUsedTwice(installed.flatpakUses, owner.flatpak)))
            add(std::move(leftover));
    }
    if (!owner.snap.empty()) {
        for (const Item &item : m_snaps.listing.named(owner.snap)) {
            const std::string folder = joined(m_snaps.folder, item.name);
            add(folderAt(folder, m_snaps.label, snapHoldsDocuments(folder) ? Match::name : Match::exact));
        }
    }
    for (const std::string &id : owner.ids)
        addAll(id, isUsedTwice(installed.uses, id) ? Match::name : Match::exact);
    for (const std::string &name : owner.names) {
        if (!isShared(name) && !isClaimed(name, installed.ids))
            addAll(name, Match::name);
    }
    std::ranges::stable_sort(found, std::ranges::greater(), &Leftover::size);
    return found;
}

/// Whether neither the folder nor any file directly inside it has changed recently.
bool LinuxData::isUntouchedInside(const Leftover &folder) const
{
    if (!isUntouched(folder, m_context.now))
        return false;
    const WalkConditions conditions;
    const auto opened = openPatiently([&] { return m_context.files.openFolder(folder.path); });
    if (!opened)
        return false;
    bool isRecent = false;
    const Expected<void> listed = (*opened)->list([&](const DirectoryEntry &entry) {
        Leftover inside;
        if (entry.modified != distantPast)
            inside.modified = entry.modified;
        isRecent = !isUntouched(inside, m_context.now);
        return isRecent || m_context.stop ? Listing::stop : Listing::goOn;
    });
    return listed.has_value() && !isRecent;
}

std::vector<OrphanGroup> LinuxData::orphans(const InstalledNames &installed) const
{
    std::vector<Orphan> found;
    const auto add = [&](std::optional<Leftover> leftover, std::string group) {
        if (leftover)
            found.push_back({*std::move(leftover), std::move(group)});
    };
    if (installed.flatpaks) {
        for (const Item &item : m_flatpaks.listing.items()) {
            const std::string folder = joined(m_flatpaks.folder, item.name);
            if (isReverseDomainName(item.lowered) && !installed.flatpaks->contains(item.lowered) &&
                !holdsDocuments(folder))
                add(folderAt(folder, m_flatpaks.label, Match::orphan), leadingPieces(item.lowered, 3));
        }
    }
    if (installed.snaps) {
        for (const Item &item : m_snaps.listing.items()) {
            const std::string folder = joined(m_snaps.folder, item.name);
            if (isPlainName(item.lowered) && !installed.snaps->contains(item.lowered) && !snapHoldsDocuments(folder))
                add(folderAt(folder, m_snaps.label, Match::orphan), item.lowered);
        }
    }
    if (installed.areIDsKnown) {
        const std::unordered_set<std::string> vendors = vendorsOf(installed.ids);
        for (const Place &place : m_places) {
            for (const Item &item : place.listing.items()) {
                if (!isReverseDomainName(item.lowered) || !isOrphanName(item.lowered, vendors))
                    continue;
                std::optional<Leftover> leftover =
                    folderAt(joined(place.folder, item.name), place.label, Match::orphan);
                if (leftover && isUntouchedInside(*leftover))
                    add(std::move(leftover), leadingPieces(item.lowered, 3));
            }
        }
    }
    return measuredGroups(std::move(found), m_context);
}

} // namespace corvane
