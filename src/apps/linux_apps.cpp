#include "apps/linux_apps.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <unordered_set>
#include <utility>

#include "apps/home_apps.h"
#include "apps/leftover_rules.h"
#include "apps/name_pieces.h"
#include "apps/package_records.h"
#include "apps/sandboxed_apps.h"
#include "core/concurrent_perform.h"
#include "core/words/lower_case.h"
#include "platform/path.h"

namespace corvane {

namespace {

constexpr std::string_view systemFlatpaks = "/var/lib/flatpak";
constexpr std::string_view otherFlatpaks = "/etc/flatpak/installations.d";
constexpr std::array<std::string_view, 2> systemEntries{"/usr/share/applications", "/usr/local/share/applications"};

FoundApp foundOf(const PackageRecord &package, const IconSearch &icons)
{
    const DesktopEntry &entry = package.entries.front();
    return {.app = {.path = entry.path,
                    .name = entry.name,
                    .bundleID = entry.id,
                    .version = package.version,
                    .lastUsed = {},
                    .leftovers = {},
                    .source = InstalledApp::Source::package,
                    .removeCommand = package.removeCommand,
                    .icon = icons.find(entry.icon),
                    .programs = package.programs},
            .owner = ownerOf(package.entries, entry.path),
            .size = [size = package.size] { return size; }};
}

class Inventory {
public:
    explicit Inventory(const SearchContext &context) : m_context(context), m_data(context), m_icons(context.files) {}

    void find(const ToolRunner &runTool)
    {
        const std::string dataFolder = LinuxData::dataFolder(m_context.locations.home(), m_context.files);
        findFlatpaks({{std::string(systemFlatpaks), "flatpak uninstall "},
                      {joined(dataFolder, "flatpak"), "flatpak uninstall --user "}});
        findSnaps();
        for (const PackageRecord &package : readPackages(m_context.files, runTool, m_context.stop)) {
            const auto isOwn = [](const DesktopEntry &entry) { return isThisApplication(entry.id); };
            if (std::ranges::none_of(package.entries, isOwn))
                m_found.push_back(foundOf(package, m_icons));
        }
        std::ranges::move(appsInHome(m_data, m_icons, m_context), std::back_inserter(m_found));
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
            if (m_context.stop)
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
        // If Flatpaks may be installed elsewhere too, the ones missing here may be there.
        if (!sortedNames(std::string(otherFlatpaks), m_context, areAllKnown).empty())
            areAllKnown = false;
        std::unordered_set<std::string> ids;
        for (const FlatpakFolder &folder : folders) {
            for (const std::string &id : sortedNames(joined(folder.path, "app"), m_context, areAllKnown)) {
                if (!isReverseDomainName(id) || m_context.stop)
                    continue;
                ids.insert(lowerCase(id));
                m_installed.ids.push_back(lowerCase(id));
                if (std::optional<FoundApp> found = flatpakAt(folder, id, m_icons, m_context))
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
        const SnapImages images = SnapImages::in(sortedNames(std::string(SnapImages::folder), m_context, areAllKnown));
        std::unordered_set<std::string> names;
        for (const auto &[name, paths] : images.byName)
            names.insert(lowerCase(name));
        for (const std::string &name : sortedNames(std::string(mountedSnaps), m_context, areAllKnown))
            names.insert(lowerCase(name));
        std::ranges::move(snaps(images, m_icons, m_context), std::back_inserter(m_found));
        if (areAllKnown)
            m_installed.snaps = std::move(names);
    }

    void noteEntriesIn(const std::string &folder)
    {
        for (const std::string &name : sortedNames(folder, m_context, m_installed.areIDsKnown)) {
            if (const auto id = desktopFileID(name); id && isReverseDomainName(*id))
                m_installed.ids.push_back(lowerCase(*id));
        }
    }

    void countUses()
    {
        for (const FoundApp &found : m_found) {
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

    const SearchContext &m_context;
    const LinuxData m_data;
    const IconSearch m_icons;
    InstalledNames m_installed;
    std::vector<FoundApp> m_found;
};

} // namespace

AppInventory::Result loadLinuxApps(const Host &host, const ProtectedLocations &locations, Time now,
                                   const ToolRunner &runTool, const StopFlag &stop)
{
    const SearchContext context{.files = host.files, .locations = locations, .now = now, .stop = stop};
    Inventory inventory(context);
    inventory.find(runTool);
    return inventory.measured();
}

AppInventory::Result loadLinuxApps(const Host &host, const ProtectedLocations &locations, Time now,
                                   const StopFlag &stop)
{
    return loadLinuxApps(host, locations, now, Shell::runner(stop), stop);
}

} // namespace corvane
