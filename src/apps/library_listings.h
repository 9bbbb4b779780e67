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

/// The items directly inside one folder, to be found by their names in lower case. Immutable once made; any thread.
class LibraryListing {
public:
    struct Item {
        std::string name;    ///< bytes
        std::string lowered; ///< as `lowerCase` gives it
    };

    enum class Ends : std::uint8_t { ignored, findable };

    LibraryListing() = default;
    /// Only with `Ends::findable`, which takes as long again, can `endingWith` be asked.
    explicit LibraryListing(std::vector<std::string> names, Ends ends = Ends::ignored);

    /// In the order of their lowered names.
    [[nodiscard]] std::span<const Item> items() const { return m_items; }
    [[nodiscard]] std::span<const Item> named(std::string_view lowered) const;
    [[nodiscard]] std::span<const Item> startingWith(std::string_view lowered) const;
    [[nodiscard]] std::vector<const Item *> endingWith(std::string_view lowered) const;

private:
    std::vector<Item> m_items;
    std::vector<std::uint32_t> m_byEnding; // indices of the items, in the order of their names read backwards
};

/// The names of what lies directly in a folder, in its own order. Fails where it cannot be listed, and where it has no
/// end. Any thread.
[[nodiscard]] Expected<std::vector<std::string>> namesIn(const std::string &folder, FileSystem &files,
                                                         const StopFlag &stop = neverStopped);

/// What lies in the Library's `leftoverLocations`, listed once so that every application meets the same. Immutable.
struct LibraryListings {
    std::string library;                                             ///< its path
    std::array<LibraryListing, leftoverLocations.size()> listings{}; ///< in the locations' order

    /// The Library of a home folder. A folder that cannot be listed, or has no end, is empty.
    [[nodiscard]] static LibraryListings read(const std::string &home, FileSystem &files,
                                              const StopFlag &stop = neverStopped);

    /// The names as a listing of that location.
    [[nodiscard]] static LibraryListing make(std::size_t location, std::vector<std::string> names);

    [[nodiscard]] std::string pathOf(std::size_t location, const LibraryListing::Item &item) const;
};

} // namespace corvane
