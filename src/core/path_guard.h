#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "platform/host.h"
#include "platform/path.h"
#include "platform/protected_places.h"

namespace corvane {

/// The path `withoutDots`, and with "~" as its first component replaced by `home`. Works on the text alone.
[[nodiscard]] std::string standardizedPath(std::string_view path, std::string_view home);

/// The places that must never be removed, for one home folder and one system's table; and every folder that
/// contains one of them. Immutable, so safe to ask from any thread.
class ProtectedLocations {
public:
    /// `home` is absolute. Where it is reached through a symbolic link, `realHome` is the same folder with
    /// every link resolved, and both are protected. So are `otherHomes`, absolute paths with and without their links.
    ProtectedLocations(std::string_view home, const ProtectedPlaces &system, std::string_view realHome = {},
                       const std::vector<std::string> &otherHomes = {});

    /// Judges the text of the path alone. What is not an absolute path cannot be judged and is protected.
    [[nodiscard]] bool isProtected(std::string_view path) const;

    /// Judges the path by its text and, where its folder is reached through a symbolic link, by where the
    /// item really lies. The item itself is not followed, for a link is its own item, unless the text asks for
    /// it (a trailing slash, "." or ".." at the end).
    [[nodiscard]] bool isProtected(std::string_view path, FileSystem &files) const;

    /// Judges an item by the real path of its folder and its own name; no link is followed.
    [[nodiscard]] bool isProtectedReally(const std::string &realPath) const;

    /// The path as it is compared: in small letters where the system takes no account of case.
    [[nodiscard]] std::string folded(std::string path) const;

    /// Whether the system takes no account of case.
    [[nodiscard]] bool ignoresCase() const { return m_ignoresCase; }

    /// The protected places, and the folders that contain one, as they are written.
    [[nodiscard]] const std::vector<std::string> &places() const { return m_places; }

    [[nodiscard]] const std::string &home() const { return m_home; }

    /// The same folder without links on its way.
    [[nodiscard]] const std::string &realHome() const { return m_realHome; }

private:
    void protectHome(const std::string &home, const ProtectedPlaces &system);
    void protectPlace(std::string place);
    void protectWithContents(std::string place);
    [[nodiscard]] bool isTrashFolder(std::string_view path) const;
    [[nodiscard]] bool isUsersOwn(std::string_view path) const;

    std::string m_home;
    std::string m_realHome;
    bool m_ignoresCase;
    std::vector<std::string> m_places; // those of m_exact as they are written
    // All as `folded` gives them.
    std::unordered_set<std::string> m_exact;
    std::vector<std::string> m_prefixes;
    std::vector<std::string> m_librariesOfHome; ///< what lies directly inside is protected
    std::vector<std::string> m_homesInVar;      ///< what lies beneath is not protected for lying in "/var"
    std::vector<std::string> m_trashFolders;    ///< how their paths end, on any volume
    std::vector<std::string> m_trashHolders;    ///< how the paths of the folders around those end
    std::vector<std::string> m_trashParts;      ///< names of the folders that a Trash folder consists of
};

/// The rule as it holds for this user on this system. Any thread.
struct PathGuard {
    /// True when the path must never be removed.
    [[nodiscard]] static bool isProtected(std::string_view path);

    /// The user's home folder, standardized.
    [[nodiscard]] static const std::string &home();

    /// The tables behind it, for those who take them as an argument.
    [[nodiscard]] static const ProtectedLocations &locations();

    /// Opens the pane of the system's settings that grants Full Disk Access; false, with a line in
    /// the system's log, where there is none. Main thread.
    static bool openFullDiskAccessSettings(Desktop &desktop = systemHost().desktop);

    /// The file whose readability shows Full Disk Access on a Mac, for a home folder.
    [[nodiscard]] static std::string accessProbePath(std::string_view home);

    /// Whether the program may read what the system hides from others: on a Mac, that the probe file opens; on any
    /// other system, which hides nothing, that the home folder does.
    [[nodiscard]] static bool probeFullDiskAccess(FileSystem &files = systemHost().files);
};

} // namespace corvane
