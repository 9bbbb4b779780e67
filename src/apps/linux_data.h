#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "apps/folder_listing.h"
#include "apps/leftover.h"
#include "apps/search_context.h"

namespace corvane {

/// Identifies the data of one application. All in lower case.
struct DataOwner {
    std::vector<std::string> ids;   ///< reverse-domain identifiers, without duplicates
    std::vector<std::string> names; ///< other names; in the form of `candidateNames`
    std::string flatpak;            ///< its application ID if it is a Flatpak
    std::string snap;               ///< its name if it is a Snap
    std::string place;              ///< its own location, which is not data; in original case
};

/// What is installed, as far as known. All in lower case.
struct InstalledNames {
    std::vector<std::string> ids;                             ///< all reverse-domain identifiers, without duplicates
    std::unordered_map<std::string, std::size_t> uses;        ///< number of listed applications per identifier
    std::unordered_map<std::string, std::size_t> flatpakUses; ///< the same for Flatpaks only
    bool areIDsKnown = true;                                  ///< false if a place with identifiers could not be read
    std::optional<std::unordered_set<std::string>> flatpaks;  ///< absent if unknown
    std::optional<std::unordered_set<std::string>> snaps;     ///< the same
};

/// Applications' data in the user's home folder on a Linux system, listed once so that every application sees the same
/// state. Immutable; any thread. Never includes folders for the user's own documents, or their contents.
class LinuxData {
public:
    /// The context must outlive the object.
    explicit LinuxData(const SearchContext &context);

    /// The base folder of applications' data, "~/.local/share" unless configured otherwise.
    [[nodiscard]] static std::string dataFolder(const std::string &home, FileSystem &files);

    /// The data of an application, largest first. A match that another application also claims is only a possible one.
    [[nodiscard]] std::vector<Leftover> dataOf(const DataOwner &owner, const InstalledNames &installed) const;

    /// The data of applications that are no longer installed, largest group first.
    [[nodiscard]] std::vector<OrphanGroup> orphans(const InstalledNames &installed) const;

    /// Whether a path is, contains, or is inside a folder for the user's own documents.
    [[nodiscard]] bool touchesDocuments(std::string_view path) const;

    /// Whether a path is, contains, or is inside one of the folders of applications' data.
    [[nodiscard]] bool isDataPlace(std::string_view path) const;

private:
    struct Place {
        std::string folder;
        std::string_view label;
        FolderListing listing;
    };

    [[nodiscard]] bool isUsable(const std::string &folder) const;
    [[nodiscard]] std::vector<Leftover> flatpakData(const std::string &id, bool isShared) const;
    [[nodiscard]] std::optional<Leftover> folderAt(const std::string &path, std::string_view label,
                                                   Leftover::Match match) const;
    [[nodiscard]] bool isFilledDocumentFolder(const std::string &folder, std::string_view name) const;
    [[nodiscard]] bool holdsDocuments(const std::string &folder) const;
    [[nodiscard]] bool snapHoldsDocuments(const std::string &snapFolder) const;
    [[nodiscard]] bool isUntouchedInside(const Leftover &folder) const;

    const SearchContext &m_context;
    std::vector<std::string> m_documents;
    std::vector<std::string> m_documentNames; ///< names of document folders, in any location
    std::vector<Place> m_places;              // those shared by all applications
    Place m_flatpaks;
    Place m_overrides;
    Place m_snaps;
};

} // namespace corvane
