#pragma once

#include <string>
#include <system_error>

#include <tl/expected.hpp>

namespace corvane {

/// A failed system call: the operation ("open", "move to Trash"), the path as bytes, the error code, and the system's
/// own message, if it provided one.
struct Error {
    std::string operation;
    std::string path;
    std::error_code code;
    std::string text;
    bool inPart = false; ///< some of it was done: part of the folder to be deleted is gone

    /// The message to show: the system's own if there is one, otherwise that of the code.
    [[nodiscard]] std::string description() const { return text.empty() ? code.message() : text; }

    /// Nothing exists at that path.
    [[nodiscard]] bool isMissing() const { return code == std::errc::no_such_file_or_directory; }
};

template <typename T>
using Expected = tl::expected<T, Error>;

} // namespace corvane
