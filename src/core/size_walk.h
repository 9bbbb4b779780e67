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

/// The bytes of a file, 0 where the figure is none that a file can have.
[[nodiscard]] std::int64_t fileSize(const ItemFacts &file);

/// Files and folders that walks leave out, with all that lies beneath them, by their absolute paths. Immutable while it
/// is used.
class ExcludedItems {
public:
    void add(std::string_view path) { m_paths.emplace(path); }
    [[nodiscard]] bool holds(std::string_view path) const { return m_paths.contains(path); }
    /// Whether one of them lies beneath that folder.
    [[nodiscard]] bool anyBeneath(std::string_view folder) const;

private:
    std::set<std::string, std::less<>> m_paths;
};

/// Adds up what is beneath folders, as `folderSize` does, or in the way that a disk counts: for several walks together
/// each file once, however many names it has, and with the blocks of the folders themselves. Used by one thread, which
/// has the help of others where there is much to walk.
class SizeWalk {
public:
    enum class Counting { everyName, asTheDisk };

    /// Both must outlive it.
    SizeWalk(Counting counting, const ExcludedItems &excluded, const StopFlag &stop)
        : m_counting(counting), m_excluded(excluded), m_stop(stop)
    {
    }

    /// Leaves out what lies on other devices from now on.
    void keepTo(std::set<std::uint64_t> devices) { m_devices = std::move(devices); }

    /// What is beneath an open folder whose absolute path is given. Once stopped, what has been counted so far.
    [[nodiscard]] std::int64_t walk(std::unique_ptr<OpenFolder> top, std::string path);

    /// What one folder holds directly: its files, each of which is told to `visit`, and where the folder's own blocks
    /// count, those. Of its subfolders the names.
    struct Contents {
        std::int64_t size = 0;
        std::vector<std::string> subfolders; ///< those that are not left out
        bool isComplete = false;             ///< it could be listed to its end
        bool isWatched = false;              ///< something beneath it is left out
    };
    using FileVisitor = std::function<void(std::string_view name, std::int64_t size)>;
    [[nodiscard]] Contents contentsOf(OpenFolder &folder, const std::string &path, const FileVisitor &visit = {});

    /// How many folders could not be opened or listed.
    [[nodiscard]] std::int64_t unreadable() const { return m_unreadable; }

private:
    class Below;
    struct Names;

    [[nodiscard]] std::unique_ptr<Names> enter(OpenFolder &folder, const std::string &path);
    [[nodiscard]] bool isFirstName(std::uint64_t device, std::uint64_t inode);

    const Counting m_counting;
    const ExcludedItems &m_excluded;
    const StopFlag &m_stop;
    std::set<std::uint64_t> m_devices; // empty for all
    std::atomic<std::int64_t> m_size = 0;
    std::atomic<std::int64_t> m_unreadable = 0;
    std::mutex m_namesLock;
    // Device and number of files with several names; guarded by m_namesLock.
    std::set<std::pair<std::uint64_t, std::uint64_t>> m_named;
};

} // namespace corvane
