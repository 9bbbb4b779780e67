#include "core/path_guard.h"

#include <algorithm>
#include <utility>

namespace corvane {
namespace {

constexpr std::string_view exactPlaces[] = {"/", "/Applications", "/Applications/Utilities", "/Users", "/Volumes"};

constexpr std::string_view exactInHome[] = {"Library",
                                            "Documents",
                                            "Desktop",
                                            "Downloads",
                                            "Pictures",
                                            "Movies",
                                            "Music",
                                            "Applications",
                                            "Public",
                                            ".Trash",
                                            ".ssh",
                                            ".config",
                                            "Library/Caches",
                                            "Library/Developer",
                                            "Library/Developer/Xcode",
                                            "Library/Preferences/ByHost"};

constexpr std::string_view systemPrefixes[] = {"/System", "/usr", "/bin",   "/sbin",    "/private", "/etc",
                                               "/var",    "/dev", "/cores", "/Library", "/opt"};

constexpr std::string_view prefixesInHome[] = {"Library/Keychains", "Library/Mail", "Library/Messages",
                                               "Library/Accounts",  ".ssh",         ".gnupg"};

std::string joined(std::string_view folder, std::string_view name)
{
    std::string path(folder);
    if (!path.ends_with('/'))
        path += '/';
    return path.append(name);
}

bool isOrLiesBeneath(std::string_view path, std::string_view folder)
{
    return path == folder || liesBeneath(path, folder);
}

std::string withTildeExpanded(std::string_view path, std::string_view home)
{
    if (path == "~" || path.starts_with("~/"))
        return std::string(home).append(path.substr(1));
    return std::string(path);
}

} // namespace

std::string standardizedPath(std::string_view text, std::string_view home)
{
    const std::string expanded = withTildeExpanded(text, home);
    std::string_view path = expanded;
    const bool isAbsolute = path.starts_with('/');
    std::vector<std::string_view> components;
    while (!path.empty()) {
        const std::string_view component = path.substr(0, path.find('/'));
        path.remove_prefix(std::min(component.size() + 1, path.size()));
        if (component.empty() || component == ".")
            continue;
        if (component != "..")
            components.push_back(component);
        else if (!components.empty() && components.back() != "..")
            components.pop_back();
        else if (!isAbsolute)
            components.push_back(component);
    }

    std::string standardized = isAbsolute ? "/" : "";
    for (const std::string_view component : components) {
        if (standardized.size() > 1 || (!isAbsolute && !standardized.empty()))
            standardized += '/';
        standardized += component;
    }
    return standardized;
}

bool liesBeneath(std::string_view path, std::string_view folder)
{
    if (folder == "/")
        return path.size() > 1 && path.front() == '/';
    return path.size() > folder.size() + 1 && path.starts_with(folder) && path[folder.size()] == '/';
}

std::string_view containingFolder(std::string_view path)
{
    const std::size_t slash = path.rfind('/');
    if (slash == std::string_view::npos)
        return {};
    return path.substr(0, std::max<std::size_t>(slash, 1));
}

std::string_view lastPathComponent(std::string_view path)
{
    const std::string_view last = path.substr(path.rfind('/') + 1);
    return last.empty() ? path : last;
}

ProtectedLocations::ProtectedLocations(std::string_view home, const ProtectedPlaces &system, std::string_view realHome)
    : m_home(standardizedPath(home, {})),
      m_realHome(realHome.empty() ? m_home : standardizedPath(realHome, {})),
      m_ignoresCase(system.ignoresCase)
{
    const std::string homes[] = {m_home, m_realHome};

    for (const std::string_view place : exactPlaces)
        protectPlace(std::string(place));
    for (const std::string_view place : systemPrefixes)
        protectWithContents(std::string(place));
    for (const std::string &place : system.exact)
        protectPlace(place);
    for (const std::string &place : system.prefixes) {
        // Such as "/root" or "/home": the user's own files stay theirs to remove.
        const bool holdsHome = std::ranges::any_of(
            homes, [&](const std::string &each) { return isOrLiesBeneath(folded(each), folded(place)); });
        if (holdsHome)
            protectPlace(place);
        else
            protectWithContents(place);
    }
    protectHome(m_home, system);
    if (m_realHome != m_home)
        protectHome(m_realHome, system);
}

void ProtectedLocations::protectHome(const std::string &home, const ProtectedPlaces &system)
{
    protectPlace(home);
    for (const std::string_view place : exactInHome)
        protectPlace(joined(home, place));
    for (const std::string &place : system.homeExact)
        protectPlace(joined(home, place));
    for (const std::string_view place : prefixesInHome)
        protectWithContents(joined(home, place));
    for (const std::string &place : system.homePrefixes)
        protectWithContents(joined(home, place));
    m_librariesOfHome.push_back(folded(joined(home, "Library")));
}

void ProtectedLocations::protectPlace(std::string place)
{
    // With its ancestors: who removes one of them removes the place.
    place = folded(std::move(place));
    while (m_exact.insert(place).second)
        place.resize(containingFolder(place).size());
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
           std::ranges::any_of(m_prefixes, [&](const auto &prefix) { return liesBeneath(standardized, prefix); }) ||
           std::ranges::find(m_librariesOfHome, containingFolder(standardized)) != m_librariesOfHome.end();
}

bool ProtectedLocations::isProtected(std::string_view path, FileSystem &files) const
{
    if (isProtected(path))
        return true;

    // The path as it stands, not the standardized one: the system follows "link/.." through the link.
    const std::string expanded = withTildeExpanded(path, m_home);
    const Expected<std::string> folder = files.realPath(std::string(containingFolder(expanded)));
    if (!folder)
        return false;
    const std::string last = expanded.substr(expanded.rfind('/') + 1);
    return isProtectedReally(standardizedPath(joined(*folder, last), m_home));
}

bool ProtectedLocations::isProtectedReally(const std::string &realPath) const
{
    // A home may lie, behind a link, beneath a folder such as "/var"; it is still the user's own.
    if (isOrLiesBeneath(folded(realPath), folded(m_realHome)))
        return isProtected(m_home + realPath.substr(m_realHome.size()));
    return isProtected(realPath);
}

std::string ProtectedLocations::folded(std::string path) const
{
    // The tables hold nothing but ASCII, and only their letters matter.
    if (m_ignoresCase) {
        for (char &c : path) {
            if (c >= 'A' && c <= 'Z')
                c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return path;
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
    static const ProtectedLocations instance = [] {
        FileSystem &files = systemHost().files;
        const std::string home = files.homeFolder();
        return ProtectedLocations(home, systemProtectedPlaces(), files.realPath(home).value_or(home));
    }();
    return instance;
}

void PathGuard::openFullDiskAccessSettings(Desktop &desktop)
{
    // Newer systems have a second address for the same pane.
    for (const char *address :
         {"x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles",
          "x-apple.systempreferences:com.apple.settings.PrivacySecurity.extension?Privacy_AllFiles"}) {
        if (desktop.openUrl(address))
            return;
    }
    desktop.log("The settings for Full Disk Access could not be opened");
}

std::string PathGuard::accessProbePath(std::string_view home)
{
    return joined(home, "Library/Application Support/com.apple.TCC/TCC.db");
}

bool PathGuard::probeFullDiskAccess(FileSystem &files)
{
    const std::string home = files.homeFolder();
    if (files.exists(joined(home, "Library")))
        return files.canOpen(accessProbePath(home));
    const auto folder = files.openFolder(home);
    return folder && (*folder)->list([](const DirectoryEntry &) {});
}

} // namespace corvane
