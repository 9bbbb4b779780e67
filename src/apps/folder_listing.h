#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/stop_flag.h"
#include "platform/file_system.h"

namespace corvane {

/// The items directly inside one folder, searchable by lower-case name. Immutable after construction; any thread.
class FolderListing {
public:
    struct Item {
        std::string name;    ///< bytes
        std::string lowered; ///< `lowerCase` of the name
    };

    enum class Ends : std::uint8_t { ignored, findable };

    FolderListing() = default;
    /// `endingWith` requires `Ends::findable`, which doubles the construction time.
    explicit FolderListing(std::vector<std::string> names, Ends ends = Ends::ignored);

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

} // namespace corvane
