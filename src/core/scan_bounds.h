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

/// The folders that one walk does not enter, known before it starts, so that the walk touches none of them: a network
/// disk that does not answer would hold it up. Immutable, so safe to ask from any thread.
class ScanBounds {
public:
    /// For a walk of the folder at `root` (absolute). On a Mac these are the folders skipped by name. On a Linux system
    /// the walk keeps to the file systems of "/" and of the home folder, or to the root's own where that is another;
    /// of several mounts that show the same, one is entered, the home folder's before others. The snapshots that
    /// snapper keeps of a volume inside it are not entered. Where the user wants no mounts, none beneath the root is.
    [[nodiscard]] static ScanBounds of(const std::string &root, FileSystem &files,
                                       ScanFilter::Mounts mounts = ScanFilter::Mounts::asUsual);

    /// The names of the folders directly inside `folder` (absolute path, bytes) that are not entered. Empty for all but
    /// a few folders.
    [[nodiscard]] std::span<const std::string> skippedIn(std::string_view folder) const;

    /// The paths of all of them.
    [[nodiscard]] std::vector<std::string> skippedPaths() const;

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void; // NOLINT(readability-identifier-naming): the library's name
    };

    void skip(std::string_view path);
    void skipEveryMount(const std::string &root, FileSystem &files);
    void skipOtherMounts(const std::string &root, FileSystem &files);

    std::unordered_map<std::string, std::vector<std::string>, Hash, std::equal_to<>> m_names; // by the folder around
    std::size_t m_longest = 0; // of those folders' paths, in bytes: far down nothing has to be looked up
};

} // namespace corvane
