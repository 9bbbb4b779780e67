#pragma once

#include <span>
#include <string>
#include <string_view>

namespace corvane {

/// The parsed command line of the window program. Works on bytes, so that any folder can be named.
struct CommandLine {
    enum class Request { window, help, version, wrong };

    Request request = Request::window;
    std::string folder; ///< to scan at once, as typed; empty for none
    std::string error;  ///< one line, if the request is wrong

    /// `arguments` without the program's own name. Skips the options that Qt takes, so that all others can be checked
    /// before Qt is started.
    [[nodiscard]] static CommandLine parse(std::span<const std::string_view> arguments);

    [[nodiscard]] static std::string_view helpText();

    friend bool operator==(const CommandLine &, const CommandLine &) = default;
};

} // namespace corvane
