#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/scan_filter.h"
#include "platform/file_system.h"

namespace corvane {

/// The folders that one walk must not enter, computed before it starts, so that the walk never touches them: a network
/// disk that does not answer would block it. Immutable, so usable from any thread.
class ScanBounds {
public:
    /// For a walk of the folder at `root` (absolute). On a Mac these are the folders skipped by name. On Linux the walk
    /// stays on the file systems of "/" and of the home folder, or on the root's own if that is a different one; of
    /// several mounts with the same contents it enters one, preferring that of the home folder. It does not enter the
    /// snapshots that snapper keeps inside a volume. With `Mounts::none` it enters no mount below the root.
    [[nodiscard]] static ScanBounds of(const std::string &root, FileSystem &files,
                                       ScanFilter::Mounts mounts = ScanFilter::Mounts::asUsual);

    /// The names of the folders directly inside `folder` (absolute path, bytes) that are not entered. Empty for all but
    /// a few folders.
    [[nodiscard]] std::span<const std::string> skippedIn(std::string_view folder) const;

    /// The paths of all skipped folders.
    [[nodiscard]] std::vector<std::string> skippedPaths() const;

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void; // NOLINT(readability-identifier-naming): the library's name
    };

    void skip(std::string_view path);
    void skipEveryMount(const std::string &root, FileSystem &files);
    void skipOtherMounts(const std::string &root, FileSystem &files);

    std::unordered_map<std::string, std::vector<std::string>, Hash, std::equal_to<>> m_names; // keyed by parent folder
    std::size_t m_longest = 0; // longest of those keys, in bytes: deeper folders need no lookup
};

} // namespace corvane
