#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvane {

// The formats of the databases of dpkg, pacman and rpm, as text. For any text, each function returns what it could
// read. Nothing here reads a file or runs a tool. Any thread.

/// A version such as "1:5.4.1-2" reduced to the application's own, without the distribution's additions.
[[nodiscard]] std::string upstreamVersion(std::string_view version);

/// A number of bytes, or of another unit; 0 if the text does not start with a number that a disk can have.
[[nodiscard]] std::int64_t sizeIn(std::string_view text);

struct DebianPackage {
    std::string version;
    std::string architecture;
    std::int64_t size = 0; ///< bytes installed
};

/// The installed packages in dpkg's "status", by name and by name with architecture. All names are plain.
[[nodiscard]] std::unordered_map<std::string, DebianPackage> debianPackages(std::string_view status);

/// The value below a heading such as "%NAME%" in pacman's "desc".
[[nodiscard]] std::string_view fieldOf(std::string_view description, std::string_view heading);

struct RpmPackage {
    std::string name;
    std::string version;
    std::int64_t size = 0; ///< bytes installed
    std::string list;      ///< its paths, one per line
};

/// Parses rpm's lines of tab-separated name, version and size, each followed by the package's paths. The names may hold
/// anything.
[[nodiscard]] std::vector<RpmPackage> rpmPackagesIn(std::string_view output);

} // namespace corvane
