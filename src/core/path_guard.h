#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "platform/host.h"
#include "platform/path.h"
#include "platform/protected_places.h"

namespace corvane {

/// The path `withoutDots`, with "~" as its first component replaced by `home`. Purely textual.
[[nodiscard]] std::string standardizedPath(std::string_view path, std::string_view home);

/// The places that must never be removed, for one home folder and one system's table, and every folder that contains
/// one of them. Immutable, so usable from any thread.
class ProtectedLocations {
public:
    /// `home` is absolute. If it is reached through a symbolic link, `realHome` is the same folder with every link
    /// resolved, and both are protected. `otherHomes`, absolute paths with and without resolved links, are protected
    /// too.
    ProtectedLocations(std::string_view home, const ProtectedPlaces &system, std::string_view realHome = {},
                       const std::vector<std::string> &otherHomes = {});

    /// The system's places, the home folder, and the one that the account has by the system's records: environment
    /// variables are easily overridden, and the account's own home stays protected regardless.
    [[nodiscard]] static ProtectedLocations ofSystem(FileSystem &files);

    /// Checks only the text of the path. A path that is not absolute cannot be checked and counts as protected.
    [[nodiscard]] bool isProtected(std::string_view path) const;

    /// Checks the path by its text and, if its folder is reached through a symbolic link, by the item's real location.
    /// Does not follow the item itself, since a link is an item of its own, unless the text requires it (a trailing
    /// slash, or "." or ".." at the end).
    [[nodiscard]] bool isProtected(std::string_view path, FileSystem &files) const;

    /// Checks an item by the real path of its folder and its own name; follows no link.
    [[nodiscard]] bool isProtectedReally(const std::string &realPath) const;

    /// The path in the form used for comparison: lower case if the system ignores case.
    [[nodiscard]] std::string folded(std::string path) const;

    /// Whether the system ignores case.
    [[nodiscard]] bool ignoresCase() const { return m_ignoresCase; }

    /// The protected places, and the folders that contain one, in their original spelling.
    [[nodiscard]] const std::vector<std::string> &places() const { return m_places; }

    [[nodiscard]] const std::string &home() const { return m_home; }

    /// The same folder with every link resolved.
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
    std::vector<std::string> m_places; // the entries of m_exact in their original spelling
    // All in the form returned by `folded`.
    std::unordered_set<std::string> m_exact;
    std::vector<std::string> m_prefixes;
    std::vector<std::string> m_librariesOfHome; ///< everything directly inside is protected
    std::vector<std::string> m_homesInVar;      ///< what is inside is not protected merely for being in "/var"
    std::vector<std::string> m_trashFolders;    ///< path suffixes of Trash folders, on any volume
    std::vector<std::string> m_trashHolders;    ///< path suffixes of the folders that contain those
    std::vector<std::string> m_trashParts;      ///< names of the subfolders of a Trash folder
};

/// The rule for the current user and system. Any thread.
struct PathGuard {
    /// True when the path must never be removed.
    [[nodiscard]] static bool isProtected(std::string_view path);

    /// The user's home folder, standardized.
    [[nodiscard]] static const std::string &home();

    /// The underlying tables, for functions that take them as an argument.
    [[nodiscard]] static const ProtectedLocations &locations();

    /// Opens the settings pane that grants Full Disk Access; returns false, with a line in the system's log, if there
    /// is none. Main thread.
    static bool openFullDiskAccessSettings(Desktop &desktop = systemHost().desktop);

    /// The file below a home folder whose readability indicates Full Disk Access on a Mac.
    [[nodiscard]] static std::string accessProbePath(std::string_view home);

    /// Whether the program may read what the system restricts: on a Mac, whether the probe file opens; elsewhere, where
    /// nothing is restricted, whether the home folder does.
    [[nodiscard]] static bool probeFullDiskAccess(FileSystem &files = systemHost().files);
};

} // namespace corvane
