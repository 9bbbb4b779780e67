#pragma once

#include <string>
#include <system_error>

#include <tl/expected.hpp>

namespace corvane {

/// What a call of the system failed at: the operation ("open", "move to Trash"), the path as bytes, the
/// system's code, and, where the system gave one, its own sentence for people.
struct Error {
    std::string operation;
    std::string path;
    std::error_code code;
    std::string text;
    bool inPart = false; ///< some of it has happened all the same: of a folder that was to be deleted, the rest is gone

    /// The sentence to show: the system's own where there is one, else the code's message.
    [[nodiscard]] std::string description() const { return text.empty() ? code.message() : text; }

    /// Nothing has that path.
    [[nodiscard]] bool isMissing() const { return code == std::errc::no_such_file_or_directory; }
};

template <typename T>
using Expected = tl::expected<T, Error>;

} // namespace corvane
