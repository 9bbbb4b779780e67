#pragma once

#include <cstdint>
#include <string>

namespace corvane {

/// One entry of the user's selection, identified by its path (bytes).
struct SelectedEntry {
    std::string path;
    std::int64_t size = 0;

    friend bool operator==(const SelectedEntry &, const SelectedEntry &) = default;
};

} // namespace corvane
