#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/time.h"

namespace corvane {

/// A snapshot of the startup disk stored on that disk, identified by its name.
struct LocalSnapshot {
    std::string name;         ///< as listed by the system; on a Mac it starts with "com.apple"
    std::optional<Time> date; ///< when it was taken, if known
    /// Bytes freed by deleting only this snapshot, if the file system reports them.
    std::optional<std::int64_t> size = {};
    /// Commands for the user to copy: list all snapshots of its keeper, and delete this one. Empty if the system thins
    /// them.
    std::string listCommand = {};
    std::string deleteCommand = {};

    friend bool operator==(const LocalSnapshot &, const LocalSnapshot &) = default;

    /// The snapshots in a Mac's listing, in its order; nothing if the text is not UTF-8.
    [[nodiscard]] static std::vector<LocalSnapshot> parse(std::string_view listing);
};

} // namespace corvane
