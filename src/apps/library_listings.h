#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "apps/leftover_location.h"
#include "core/stop_flag.h"
#include "platform/file_system.h"

namespace corvane {

/// The items directly inside one folder, searchable by lower-case name. Immutable after construction; any thread.
class LibraryListing {
public:
    struct Item {
        std::string name;    ///< bytes
        std::string lowered; ///< `lowerCase` of the name
    };

    enum class Ends : std::uint8_t { ignored, findable };

    LibraryListing() = default;
    /// `endingWith` requires `Ends::findable`, which doubles the construction time.
    explicit LibraryListing(std::vector<std::string> names, Ends ends = Ends::ignored);

    /// In the order of their lowered names.
    [[nodiscard]] std::span<const Item> items() const { return m_items; }
    [[nodiscard]] std::span<const Item> named(std::string_view lowered) const;
    [[nodiscard]] std::span<const Item> startingWith(std::string_view lowered) const;
    [[nodiscard]] std::vector<const Item *> endingWith(std::string_view lowered) const;

private:
    std::vector<Item> m_items;
    std::vector<std::uint32_t> m_byEnding; // indices of the items, sorted by reversed name
};

/// The names directly inside a folder, in listing order. Fails if the folder cannot be listed or has no end. Any
/// thread.
[[nodiscard]] Expected<std::vector<std::string>> namesIn(const std::string &folder, FileSystem &files,
                                                         const StopFlag &stop = neverStopped);

/// The contents of the Library's `leftoverLocations`, listed once so that every application sees the same state.
/// Immutable.
struct LibraryListings {
    std::string library;                                             ///< its path
    std::array<LibraryListing, leftoverLocations.size()> listings{}; ///< in the locations' order

    /// Lists the Library of a home folder. A folder that cannot be listed, or has no end, counts as empty.
    [[nodiscard]] static LibraryListings read(const std::string &home, FileSystem &files,
                                              const StopFlag &stop = neverStopped);

    /// Creates a listing of that location from names.
    [[nodiscard]] static LibraryListing make(std::size_t location, std::vector<std::string> names);

    [[nodiscard]] std::string pathOf(std::size_t location, const LibraryListing::Item &item) const;
};

} // namespace corvane
