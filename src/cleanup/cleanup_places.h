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

/// Where the rows of the cleanup catalogue lie in the system that a root describes. Immutable, so safe to ask from any
/// thread.
class CleanupPlaces {
public:
    struct Place {
        std::string path;
        std::string realPath;
        std::string name; ///< of the entry that the whole folder is; empty where the items inside are the entries
    };

    struct Row {
        const CleanupDefinition *def = nullptr; ///< of static storage
        std::string path;                       ///< to show the user, whether it exists or not; empty where refused
        std::vector<Place> places;              ///< those that exist, none of them in another row as well
        bool isListed = true;                   ///< false where the folder of the places could not be listed
    };

    /// `files` outlives the object.
    explicit CleanupPlaces(FileSystem &files);

    /// Those of every system, in the order of the catalogue, then the system's own.
    [[nodiscard]] const std::vector<Row> &rows() const { return m_rows; }
    [[nodiscard]] const Row &rowOf(const CleanupDefinition &definition) const;

    /// What lies inside a place and counts in another one, by its real path.
    [[nodiscard]] const ExcludedItems &countedElsewhere() const { return m_countedElsewhere; }

private:
    [[nodiscard]] Row find(const CleanupDefinition &definition) const;
    void add(std::string_view path, Row &row) const;
    void addEvery(std::string_view folder, std::string_view inEach, Row &row) const;
    void addPlace(std::string path, std::string name, Row &row) const;
    /// Leaves each folder in one row, and notes them all.
    void makeDisjoint();

    FileSystem &m_files;
    const PlaceRule m_rule;
    const MountMap m_mounts;
    std::vector<Row> m_rows;
    ExcludedItems m_countedElsewhere;
};

} // namespace corvane
