#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/stop_flag.h"
#include "platform/file_system.h"

namespace corvane {

/// The bytes of a file; 0 if the reported size is impossible.
[[nodiscard]] std::int64_t fileSize(const ItemFacts &file);

/// Files and folders that walks leave out together with their contents, by absolute path. Immutable while in use.
class ExcludedItems {
public:
    void add(std::string_view path) { m_paths.emplace(path); }
    [[nodiscard]] bool holds(std::string_view path) const { return m_paths.contains(path); }
    /// Whether one of them is inside that folder.
    [[nodiscard]] bool anyBeneath(std::string_view folder) const;

private:
    std::set<std::string, std::less<>> m_paths;
};

/// Adds up what is inside folders, either as `folderSize` does, or as the disk itself counts: each file once across
/// several walks, however many hard links it has, and including the folders' own blocks. Used by one thread; large
/// walks use the pool.
class SizeWalk {
public:
    enum class Counting { everyName, asTheDisk };

    /// Both references must outlive the object.
    SizeWalk(Counting counting, const ExcludedItems &excluded, const StopFlag &stop)
        : m_counting(counting), m_excluded(excluded), m_stop(stop)
    {
    }

    /// From now on, skips everything on other devices.
    void keepTo(std::set<std::uint64_t> devices) { m_devices = std::move(devices); }

    /// The size of what is inside an open folder with that absolute path. When stopped, the sum so far.
    [[nodiscard]] std::int64_t walk(std::unique_ptr<OpenFolder> top, std::string path);

    /// What one folder holds directly: the size of its files, each passed to `visit`, plus the folder's own blocks if
    /// those count; and the names of its subfolders.
    struct Contents {
        std::int64_t size = 0;
        std::vector<std::string> subfolders; ///< those that are not left out
        bool isComplete = false;             ///< listed to its end
        bool hasExclusions = false;          ///< something inside it is left out
    };
    using FileVisitor = std::function<void(std::string_view name, std::int64_t size)>;
    [[nodiscard]] Contents contentsOf(OpenFolder &folder, const std::string &path, const FileVisitor &visit = {});

    /// The number of folders that could not be opened or listed.
    [[nodiscard]] std::int64_t unreadable() const { return m_unreadable; }

private:
    class Below;
    struct Names;

    [[nodiscard]] std::unique_ptr<Names> enter(OpenFolder &folder, const std::string &path);
    [[nodiscard]] bool isFirstName(std::uint64_t device, std::uint64_t inode);

    const Counting m_counting;
    const ExcludedItems &m_excluded;
    const StopFlag &m_stop;
    std::set<std::uint64_t> m_devices; // empty: all devices
    std::atomic<std::int64_t> m_size = 0;
    std::atomic<std::int64_t> m_unreadable = 0;
    std::mutex m_namesLock;
    // Device and inode of files with several hard links; guarded by m_namesLock.
    std::set<std::pair<std::uint64_t, std::uint64_t>> m_named;
};

} // namespace corvane
