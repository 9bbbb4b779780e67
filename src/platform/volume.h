#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// Facts about a volume from one request; unknown ones are absent.
struct VolumeFacts {
    std::optional<std::string> name;
    std::optional<std::int64_t> total;                    ///< bytes
    std::optional<std::int64_t> available;                ///< bytes
    std::optional<std::int64_t> availableForImportantUse; ///< bytes, purgeable space included
    std::optional<std::int64_t> reserved = {};            ///< bytes reserved for root, not included in the others

    friend bool operator==(const VolumeFacts &, const VolumeFacts &) = default;
};

/// A file that the system swaps memory to.
struct SwapFile {
    std::string path;
    std::int64_t size = 0; ///< bytes on disk

    friend bool operator==(const SwapFile &, const SwapFile &) = default;
};

/// Deleted files that occupy space because a program still has them open.
struct OpenDeletedFiles {
    std::string program;
    std::int64_t size = 0; ///< bytes on disk, without those already counted for a previous program

    friend bool operator==(const OpenDeletedFiles &, const OpenDeletedFiles &) = default;
};

/// The capacities of volumes. Any thread.
class Volumes {
public:
    virtual ~Volumes() = default;

    /// The volume that contains the path; every field is absent if the request fails.
    [[nodiscard]] virtual VolumeFacts facts(const std::string &path) = 0;

    /// The swap files; none if unknown.
    [[nodiscard]] virtual std::vector<SwapFile> swapFiles() { return {}; }

    /// Deleted files on the file systems of "/" and of `home` that are still open, grouped by program; only programs
    /// that the user may inspect.
    [[nodiscard]] virtual std::vector<OpenDeletedFiles> deletedFiles(const std::string & /*home*/) { return {}; }
};

} // namespace corvane
