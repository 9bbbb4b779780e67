#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cleanup/place_rule.h"
#include "core/mount_map.h"
#include "core/size_walk.h"
#include "core/systems/cleanup_table.h"
#include "platform/file_system.h"

namespace corvane {

/// The locations of the cleanup catalogue's rows in the root's system. Immutable, so usable from any thread.
class CleanupPlaces {
public:
    struct Place {
        std::string path;
        std::string realPath;
        std::string name; ///< of the entry, if the whole folder is one entry; empty if the items inside are the entries
    };

    struct Row {
        const CleanupDefinition *def = nullptr; ///< static storage
        std::string path;                       ///< display path, whether or not it exists; empty if refused
        std::vector<Place> places;              ///< existing ones, none of them also in another row
        bool isListed = true;                   ///< false if the folder of the places could not be listed
    };

    /// `files` must outlive the object.
    explicit CleanupPlaces(FileSystem &files);

    /// The common rows in the order of the catalogue, then the system's own.
    [[nodiscard]] const std::vector<Row> &rows() const { return m_rows; }
    [[nodiscard]] const Row &rowOf(const CleanupDefinition &definition) const;

    /// Items inside a place that count in another one, by real path.
    [[nodiscard]] const ExcludedItems &countedElsewhere() const { return m_countedElsewhere; }

private:
    [[nodiscard]] Row find(const CleanupDefinition &definition) const;
    void add(std::string_view path, Row &row) const;
    void addEvery(std::string_view folder, std::string_view inEach, Row &row) const;
    void addPlace(std::string path, std::string name, Row &row) const;
    /// Assigns each folder to one row, and records all of them.
    void makeDisjoint();

    FileSystem &m_files;
    const PlaceRule m_rule;
    const MountMap m_mounts;
    std::vector<Row> m_rows;
    ExcludedItems m_countedElsewhere;
};

} // namespace corvane
