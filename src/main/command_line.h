#pragma once

#include <span>
#include <string>
#include <string_view>

namespace corvane {

/// What the window program was asked on its command line. Works on bytes, so that any folder can be named.
struct CommandLine {
    enum class Request { window, help, version, wrong };

    Request request = Request::window;
    std::string folder; ///< to be scanned at once, as it was written; empty for none
    std::string error;  ///< one line, when the request is wrong

    /// `arguments` without the program's own name.
    [[nodiscard]] static CommandLine parse(std::span<const std::string_view> arguments);

    [[nodiscard]] static std::string_view helpText();

    friend bool operator==(const CommandLine &, const CommandLine &) = default;
};

} // namespace corvane
