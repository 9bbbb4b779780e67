#pragma once

#include <string>
#include <string_view>

namespace corvane {

class FileSystem;

/// What the system and the machine call themselves. Any thread; the calls that are given the files read some small
/// ones.
struct SystemFacts {
    /// The system's name and version for people, "Debian GNU/Linux 12 (bookworm)"; on macOS the version alone. Not
    /// empty.
    [[nodiscard]] static std::string system(FileSystem &files);

    /// The machine's model as its maker names it; empty where that cannot be read or was never filled in.
    [[nodiscard]] static std::string model(FileSystem &files);

    /// The processor's architecture, whatever this program was built for: "x86_64", "arm64".
    [[nodiscard]] static std::string architecture();
};

} // namespace corvane
