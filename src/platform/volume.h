#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// What the system reports of a volume in one request; what it does not report is absent.
struct VolumeFacts {
    std::optional<std::string> name;
    std::optional<std::int64_t> total;                    ///< bytes
    std::optional<std::int64_t> available;                ///< bytes
    std::optional<std::int64_t> availableForImportantUse; ///< bytes, purgeable space included
    std::optional<std::int64_t> reserved = {}; ///< bytes kept back for the administrator, in none of the others

    friend bool operator==(const VolumeFacts &, const VolumeFacts &) = default;
};

/// A file that the system keeps parts of its memory in.
struct SwapFile {
    std::string path;
    std::int64_t size = 0; ///< bytes on disk

    friend bool operator==(const SwapFile &, const SwapFile &) = default;
};

/// Files that have been deleted and take up space as long as a program has them open.
struct HeldFiles {
    std::string program;
    std::int64_t size = 0; ///< bytes on disk of those that no program before it holds too

    friend bool operator==(const HeldFiles &, const HeldFiles &) = default;
};

/// The capacities of volumes. May be asked from any thread.
class Volumes {
public:
    virtual ~Volumes() = default;

    /// The volume that holds the path; every field absent when the request fails.
    [[nodiscard]] virtual VolumeFacts facts(const std::string &path) = 0;

    /// The files that are swapped to; none where the system does not tell.
    [[nodiscard]] virtual std::vector<SwapFile> swapFiles() { return {}; }

    /// The deleted files on the file systems of "/" and of that folder that are still open, by the program that holds
    /// them; only those of programs that the user may look into.
    [[nodiscard]] virtual std::vector<HeldFiles> deletedFiles(const std::string & /*home*/) { return {}; }
};

} // namespace corvane
