#include "core/path_guard.h"

#include <algorithm>
#include <utility>

#include "core/systems/mac_places.h"
#include "core/systems/system_table.h"
#include "platform/ascii_case.h"
#include "platform/environment.h"

namespace corvane {
namespace {

std::string withTildeExpanded(std::string_view path, std::string_view home)
{
    if (path == "~" || path.starts_with("~/"))
        return std::string(home).append(path.substr(1));
    return std::string(path);
}

} // namespace

std::string standardizedPath(std::string_view path, std::string_view home)
{
    return withoutDots(withTildeExpanded(path, home));
}

ProtectedLocations::ProtectedLocations(std::string_view home, const ProtectedPlaces &system, std::string_view realHome,
                                       const std::vector<std::string> &otherHomes)
    : m_home(standardizedPath(home, {})),
      m_realHome(realHome.empty() ? m_home : standardizedPath(realHome, {})),
      m_ignoresCase(system.ignoresCase)
{
    const std::string homes[] = {m_home, m_realHome};

    for (const std::string_view place : mac_places::protectedPlaces)
        protectPlace(std::string(place));
    for (const std::string_view place : mac_places::protectedPrefixes)
        protectWithContents(std::string(place));
    for (const std::string &place : system.exact)
        protectPlace(place);
    for (const std::string &place : system.prefixes) {
        // Such as "/root" or "/home": the user's own files must stay removable.
        const bool holdsHome = std::ranges::any_of(
            homes, [&](const std::string &each) { return isOrLiesBeneath(folded(each), folded(place)); });
        if (holdsHome)
            protectPlace(place);
        else
            protectWithContents(place);
    }
    for (const std::string &each : homes) {
        // The location of home folders on systems with a sealed "/usr".
        if (liesBeneath(each, "/var/home"))
            m_homesInVar.push_back(folded(each));
    }
    for (const std::string &folder : system.trashFolders) {
        m_trashFolders.push_back("/" + folded(folder));
        for (std::string_view around = containingFolder(folder); !around.empty(); around = containingFolder(around))
            m_trashHolders.push_back("/" + folded(std::string(around)));
    }
    m_trashParts = system.trashParts;
    protectHome(m_home, system);
    if (m_realHome != m_home)
        protectHome(m_realHome, system);
    for (const std::string &other : otherHomes)
        protectHome(standardizedPath(other, {}), system);
}

void ProtectedLocations::protectHome(const std::string &home, const ProtectedPlaces &system)
{
    protectPlace(home);
    for (const std::string_view place : mac_places::protectedInHome)
        protectPlace(joined(home, place));
    for (const std::string &place : system.homeExact)
        protectPlace(joined(home, place));
    for (const std::string_view place : mac_places::protectedPrefixesInHome)
        protectWithContents(joined(home, place));
    for (const std::string &place : system.homePrefixes)
        protectWithContents(joined(home, place));
    m_librariesOfHome.push_back(folded(joined(home, "Library")));
}

void ProtectedLocations::protectPlace(std::string place)
{
    // Include the ancestors: removing one of them removes the place.
    while (m_exact.insert(folded(place)).second) {
        m_places.push_back(place);
        place.resize(containingFolder(place).size());
    }
}

void ProtectedLocations::protectWithContents(std::string place)
{
    m_prefixes.push_back(folded(place));
    protectPlace(std::move(place));
}

bool ProtectedLocations::isProtected(std::string_view path) const
{
    if (path.find('\0') != std::string_view::npos)
        return true;
    const std::string standardized = folded(standardizedPath(path, m_home));
    if (!standardized.starts_with('/'))
        return true;
    return m_exact.contains(standardized) ||
           std::ranges::any_of(m_prefixes,
                               [&](const auto &prefix) {
                                   return liesBeneath(standardized, prefix) &&
                                          !(prefix == "/var" && isUsersOwn(standardized));
                               }) ||
           isTrashFolder(standardized) ||
           std::ranges::find(m_librariesOfHome, containingFolder(standardized)) != m_librariesOfHome.end();
}

bool ProtectedLocations::isProtected(std::string_view path, FileSystem &files) const
{
    if (isProtected(path))
        return true;

    // Use the path as given, not the standardized one: the system resolves "link/.." through the link.
    const std::string expanded = withTildeExpanded(path, m_home);
    const Expected<std::string> folder = files.realPath(std::string(containingFolder(expanded)));
    if (!folder)
        return false;
    const std::string last = expanded.substr(expanded.rfind('/') + 1);
    return isProtectedReally(standardizedPath(joined(*folder, last), m_home));
}

bool ProtectedLocations::isProtectedReally(const std::string &realPath) const
{
    // A home folder reached through a link may lie below a folder such as "/var"; its contents still belong to the
    // user. If the real home is "/", the system's places stay protected.
    if (m_realHome != "/" && isOrLiesBeneath(folded(realPath), folded(m_realHome)))
        return isProtected(m_home + realPath.substr(m_realHome.size()));
    return isProtected(realPath);
}

bool ProtectedLocations::isTrashFolder(std::string_view path) const
{
    const auto endsLikeOneOf = [](std::string_view text, const std::vector<std::string> &endings) {
        return std::ranges::any_of(endings, [&](const std::string &ending) { return text.ends_with(ending); });
    };
    return endsLikeOneOf(path, m_trashFolders) || endsLikeOneOf(path, m_trashHolders) ||
           (std::ranges::find(m_trashParts, lastPathComponent(path)) != m_trashParts.end() &&
            endsLikeOneOf(containingFolder(path), m_trashFolders));
}

bool ProtectedLocations::isUsersOwn(std::string_view path) const
{
    return std::ranges::any_of(m_homesInVar, [&](const std::string &home) { return liesBeneath(path, home); });
}

ProtectedLocations ProtectedLocations::ofSystem(FileSystem &files)
{
    const std::string home = files.homeFolder();
    const std::string account = Environment::accountHome();
    return {home,
            systemProtectedPlaces(),
            files.realPath(home).value_or(home),
            {account, files.realPath(account).value_or(account)}};
}

std::string ProtectedLocations::folded(std::string path) const
{
    return m_ignoresCase ? lowerAscii(std::move(path)) : path;
}

bool PathGuard::isProtected(std::string_view path)
{
    return locations().isProtected(path);
}

const std::string &PathGuard::home()
{
    return locations().home();
}

const ProtectedLocations &PathGuard::locations()
{
    static const ProtectedLocations instance = ProtectedLocations::ofSystem(systemHost().files);
    return instance;
}

bool PathGuard::openFullDiskAccessSettings(Desktop &desktop)
{
    // Newer systems have a second URL for the same pane.
    for (const char *address :
         {"x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles",
          "x-apple.systempreferences:com.apple.settings.PrivacySecurity.extension?Privacy_AllFiles"}) {
        if (desktop.openUrl(address))
            return true;
    }
    desktop.log("The settings for Full Disk Access could not be opened");
    return false;
}

std::string PathGuard::accessProbePath(std::string_view home)
{
    return joined(home, systemTableOf(SystemKind::mac).accessProbe);
}

bool PathGuard::probeFullDiskAccess(FileSystem &files)
{
    const std::string home = files.homeFolder();
    const std::string_view probe = systemTableOf(files.systemKind()).accessProbe;
    return probe.empty() ? files.openFolder(home).has_value() : files.canOpen(joined(home, probe));
}

} // namespace corvane
