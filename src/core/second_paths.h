#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/mount_map.h"
#include "core/path_guard.h"
#include "platform/file_system.h"

namespace corvane {

/// The paths at which something protected is seen a second time, as where a folder is mounted a second time elsewhere.
/// Goes by the identity (device, inode) of the protected places and of the folders around an item. Asks nothing of
/// places on other volumes than those of "/" and of the home, for one that no longer answers would block; and asks
/// nothing at all where no second mount is involved. Reads a hundred items otherwise, and remembers them from one item
/// of a request to the next as long as nothing is mounted anew: for the moment of removing, not for the rows of a list.
/// One thread.
class SecondPaths {
public:
    /// Both outlive the object.
    SecondPaths(const ProtectedLocations &locations, FileSystem &files) : m_locations(locations), m_files(files) {}

    /// Whether a real path is a second one to something protected.
    [[nodiscard]] bool leadToProtected(const std::string &realPath, const std::vector<std::string> &mountPoints);

private:
    /// A place with the path of a folder that is the same one.
    struct Alias {
        const std::string *place;
        std::string path;
    };

    void learnMounts(const std::vector<std::string> &mountPoints);
    void learnFolder(const std::string &folder);
    void addAliases(const std::string &path, std::vector<Alias> &aliases) const;
    [[nodiscard]] bool leadsToProtected(const std::string &realPath, const std::vector<Alias> &aliases) const;

    const ProtectedLocations &m_locations;
    FileSystem &m_files;
    std::vector<std::string> m_mountPoints;
    std::string m_mountOfHome; // empty until the mounts are known
    // Of those mounts, once an item needs them.
    std::vector<std::pair<ItemIdentity, const std::string *>> m_places;
    MountMap m_mounts{{}};
    bool m_areMountsLearnt = false;
    // Of the folder that was met last.
    std::string m_folder;
    std::vector<Alias> m_aliasesAround;
};

} // namespace corvane
