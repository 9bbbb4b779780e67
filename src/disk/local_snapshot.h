#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/time.h"

namespace corvane {

/// A snapshot of the start-up disk that the system keeps on the disk itself, identified by its name.
struct LocalSnapshot {
    std::string name;         ///< as the system lists it; of a Mac begins with "com.apple"
    std::optional<Time> date; ///< when it was taken, if that is known
    /// What is freed when it alone is deleted, bytes, where the file system tells.
    std::optional<std::int64_t> size = {};
    /// For the user to copy: lists all that its keeper has, and deletes this one. Empty where the system thins them.
    std::string listCommand = {};
    std::string deleteCommand = {};

    friend bool operator==(const LocalSnapshot &, const LocalSnapshot &) = default;

    /// The snapshots of a Mac's listing, in its order; nothing for text that is not UTF-8.
    [[nodiscard]] static std::vector<LocalSnapshot> parse(std::string_view listing);
};

} // namespace corvane
