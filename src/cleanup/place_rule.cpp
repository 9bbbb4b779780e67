#include "cleanup/place_rule.h"

#include <algorithm>
#include <utility>

#include "core/systems/home_folders.h"
#include "core/systems/system_table.h"
#include "platform/environment.h"
#include "platform/path.h"
#include "platform/protected_places.h"

namespace corvane {

PlaceRule::PlaceRule(FileSystem &files)
    : m_files(files),
      m_home(files.homeFolder()),
      m_realHome(real(m_home)),
      m_locations(ProtectedLocations::ofSystem(files)),
      m_userFolders(files.userFolders()),
      m_mounts(files.mounts())
{
    for (const std::string_view name : mainFoldersOfHome)
        m_usualFolders.push_back(joined(m_home, name));
}

std::optional<std::string> PlaceRule::placeFor(std::string_view relativePath) const
{
    if (m_home.empty()) // the user's folders are unknown
        return std::nullopt;
    std::string usual = joined(m_home, relativePath);
    std::string place = usual;
    if (systemTableOf(m_files.systemKind()).hasOwnPlaces) {
        if (std::optional<OwnPlace> own = m_files.ownPlaceFor(relativePath)) {
            place = std::move(own->path);
            usual = std::move(own->usual);
        }
    }
    const Expected<std::string> realPlace = m_files.realPath(place);
    if (!realPlace) // nothing exists there
        return place;
    const bool isUsual = liesBeneath(usual, m_home) && *realPlace == m_realHome + usual.substr(m_home.size());
    // The items folder of the Trash is protected in any location; the items are not.
    const std::string judged = relativePath == ".Trash" ? joined(*realPlace, "item") : *realPlace;
    const bool mayBeMainFolder = isMainFolder(usual);
    if (!(isUsual && mayBeMainFolder) && isRefused(*realPlace, place, usual))
        return std::nullopt;
    if (!isUsual && (mayBeMainFolder ? isNoMainFolder(*realPlace) : m_locations.isProtectedReally(judged)))
        return std::nullopt;
    // A main folder may be mounted there. Skip the system's own places: on some systems one of them shows the whole
    // disk.
    const bool isRefusedElsewhere =
        std::ranges::any_of(m_mounts.otherPathsOf(*realPlace), [&](const std::string &other) {
            return isRefused(other, place, usual) ||
                   (liesBeneath(other, m_realHome) && !mayBeMainFolder && m_locations.isProtectedReally(other));
        });
    return isRefusedElsewhere ? std::nullopt : std::optional(place);
}

std::vector<std::string> PlaceRule::trashesOfVolumes() const
{
    std::vector<std::string> trashes;
    if (!systemTableOf(m_files.systemKind()).hasOwnPlaces)
        return trashes;
    for (std::string &trash : m_files.volumeTrashes()) {
        const Expected<std::string> realTrash = m_files.realPath(trash);
        if (!realTrash)
            continue;
        const auto isBarred = [&](const std::string &path) {
            return isRefused(path, trash, {}) || m_locations.isProtectedReally(joined(path, "item"));
        };
        if (!isBarred(*realTrash) && std::ranges::none_of(m_mounts.otherPathsOf(*realTrash), [&](const auto &other) {
                return isRefused(other, trash, {});
            }))
            trashes.push_back(std::move(trash));
    }
    return trashes;
}

std::string PlaceRule::real(const std::string &path) const
{
    return m_files.realPath(path).value_or(path);
}

bool PlaceRule::isRefused(const std::string &realPlace, const std::string &place, const std::string &usual) const
{
    // The downloads place is a main folder itself, so refuse it only if it coincides with another main folder.
    std::vector<std::string> others = m_usualFolders;
    std::erase(others, usual);
    others.insert(others.end(), m_userFolders.begin(), m_userFolders.end());
    if (isMainFolder(usual)) {
        if (const auto itself = std::ranges::find(others, place); itself != others.end())
            others.erase(itself);
    }
    const bool touchesAnother = std::ranges::any_of(others, [&](const std::string &folder) {
        const std::string realFolder = real(folder);
        return isOrLiesBeneath(realPlace, realFolder) || liesBeneath(realFolder, realPlace);
    });
    return touchesAnother || isOrLiesBeneath(m_realHome, realPlace) || realPlace == real("/tmp");
}

bool PlaceRule::isNoMainFolder(const std::string &realPlace) const
{
    // A main folder itself is protected in any location, so check an item inside it.
    const bool isHidden = liesBeneath(realPlace, m_realHome) && realPlace[m_realHome.size() + 1] == '.';
    return isHidden || m_locations.isProtectedReally(joined(realPlace, "item"));
}

bool PlaceRule::isMainFolder(const std::string &usual) const
{
    return std::ranges::find(m_usualFolders, usual) != m_usualFolders.end();
}

} // namespace corvane
