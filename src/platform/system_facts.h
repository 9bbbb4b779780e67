#pragma once

#include <string>
#include <string_view>

namespace corvane {

class FileSystem;

/// Names of the system and the machine. Any thread; functions that take `files` read a few small ones.
struct SystemFacts {
    /// The system's display name and version, "Debian GNU/Linux 12 (bookworm)"; on macOS the version only. Never empty.
    [[nodiscard]] static std::string system(FileSystem &files);

    /// The manufacturer's model name; empty if it cannot be read or was never filled in.
    [[nodiscard]] static std::string model(FileSystem &files);

    /// The processor's architecture, regardless of the one this program was built for: "x86_64", "arm64".
    [[nodiscard]] static std::string architecture();
};

} // namespace corvane
