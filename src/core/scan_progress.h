#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace corvane {

/// The one object shared by a scan's threads and the main thread: its counters, the cancel request, and the failure
/// that ended the scan. Its identity is the scan's token. Every member may be called from any thread.
class ScanProgress {
public:
    struct Counters {
        std::int64_t files = 0;
        std::int64_t bytes = 0;
        std::int64_t denied = 0;  ///< folders below the root that could not be opened or listed
        std::int64_t leftOut = 0; ///< items that match the user's patterns
        std::string current;      ///< path (bytes) of the folder finished last, or being waited for
    };

    /// Adds one folder's own files and bytes and names it as the one finished last.
    void record(std::int64_t files, std::int64_t bytes, std::string_view path);
    void recordDenied();
    void recordLeftOut();
    /// Sets the current path to a folder that is taking long to answer.
    void recordWait(std::string_view path);
    /// Asks the walk to stop; it does so before entering the next folder, or in the middle of a very long listing.
    void cancel();
    [[nodiscard]] bool isCancelled() const;
    /// Ends the walk because of something that would make its figures wrong. Only the first failure is kept.
    void fail(Error error);
    /// If set, the tree must not be shown as a result.
    [[nodiscard]] std::optional<Error> failure() const;
    /// Whether the walk should end, for either reason. Cheap enough to check for every file.
    [[nodiscard]] bool shouldStop() const { return m_shouldStop.load(std::memory_order_relaxed); }
    [[nodiscard]] Counters counters() const;

private:
    mutable std::mutex m_lock;
    // Guarded by m_lock.
    Counters m_counters;
    bool m_cancelled = false;
    std::optional<Error> m_failure;
    // Written under m_lock, read without it.
    std::atomic<bool> m_shouldStop = false;
};

} // namespace corvane
