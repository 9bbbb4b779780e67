#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "apps/app_inventory.h"
#include "apps/library_listings.h"

namespace corvane {

/// What the data of one application goes by. All in lower case.
struct DataOwner {
    std::vector<std::string> ids;   ///< reverse-domain identifiers, each once
    std::vector<std::string> names; ///< what it is called besides; as `candidateNames` gives them
    std::string flatpak;            ///< its identifier where it is a Flatpak
    std::string snap;               ///< its name where it is a Snap
    std::string place;              ///< where it lies itself, which is no data; as it is written
};

/// What is installed, as far as it can be told. All in lower case.
struct InstalledNames {
    std::vector<std::string> ids;                      ///< every reverse-domain identifier, each once
    std::unordered_map<std::string, std::size_t> uses; ///< how many of the listed applications go by an identifier
    std::unordered_map<std::string, std::size_t> flatpakUses; ///< the same of Flatpaks alone
    bool areIDsKnown = true; ///< none of the places where they stand was closed to the user
    std::optional<std::unordered_set<std::string>> flatpaks; ///< nothing where they cannot be told
    std::optional<std::unordered_set<std::string>> snaps;    ///< the same
};

/// What applications keep in the user's home folder on a Linux system, listed once so that every application meets the
/// same. Immutable; any thread. Folders for the user's own documents, and what lies in them, are never part of it.
class LinuxData {
public:
    /// The surroundings must outlive it.
    explicit LinuxData(const AppInventory::Surroundings &surroundings);

    /// The folder for the data of applications, "~/.local/share" unless the user has set another.
    [[nodiscard]] static std::string dataFolder(const std::string &home, FileSystem &files);

    /// What belongs to an application, largest first. What another one goes by as well only may belong to it.
    [[nodiscard]] std::vector<Leftover> dataOf(const DataOwner &owner, const InstalledNames &installed) const;

    /// What applications that are gone have left, largest group first.
    [[nodiscard]] std::vector<OrphanGroup> orphans(const InstalledNames &installed) const;

    /// Whether a path is, holds, or lies in a folder for the user's own documents.
    [[nodiscard]] bool touchesDocuments(std::string_view path) const;

    /// Whether a path is, holds, or lies in one of the folders where applications keep their data.
    [[nodiscard]] bool isDataPlace(std::string_view path) const;

private:
    struct Place {
        std::string folder;
        std::string_view label;
        LibraryListing listing;
    };

    [[nodiscard]] bool isUsable(const std::string &folder) const;
    [[nodiscard]] std::vector<Leftover> flatpakData(const std::string &id, bool isShared) const;
    [[nodiscard]] std::optional<Leftover> folderAt(const std::string &path, std::string_view label,
                                                   Leftover::Match match) const;
    [[nodiscard]] bool isFilledDocumentFolder(const std::string &folder, std::string_view name) const;
    [[nodiscard]] bool holdsDocuments(const std::string &folder) const;
    [[nodiscard]] bool snapHoldsDocuments(const std::string &snapFolder) const;
    [[nodiscard]] bool isUntouchedInside(const Leftover &folder) const;

    const AppInventory::Surroundings &m_surroundings;
    std::vector<std::string> m_documents;
    std::vector<std::string> m_documentNames; ///< what such folders are called, wherever they lie
    std::vector<Place> m_places;              // those that may hold anybody's
    Place m_flatpaks;
    Place m_overrides;
    Place m_snaps;
};

} // namespace corvane
