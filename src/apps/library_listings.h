#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "apps/folder_listing.h"
#include "apps/leftover_location.h"
#include "core/stop_flag.h"
#include "platform/file_system.h"

namespace corvane {

/// The contents of the Library's `leftoverLocations`, listed once so that every application sees the same state.
/// Immutable.
struct LibraryListings {
    std::string library;                                            ///< its path
    std::array<FolderListing, leftoverLocations.size()> listings{}; ///< in the locations' order

    /// Lists the Library of a home folder. A folder that cannot be listed, or has no end, counts as empty.
    [[nodiscard]] static LibraryListings read(const std::string &home, FileSystem &files,
                                              const StopFlag &stop = neverStopped);

    /// Creates a listing of that location from names.
    [[nodiscard]] static FolderListing make(std::size_t location, std::vector<std::string> names);

    [[nodiscard]] std::string pathOf(std::size_t location, const FolderListing::Item &item) const;
};

} // namespace corvane
