#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace corvane {

/// The one object that a scan's threads and the main thread share: its counters, the wish to stop, and what kept the
/// scan from going on.
/// Its identity is the scan's token. Every member may be called from any thread.
class ScanProgress {
public:
    struct Counters {
        std::int64_t files = 0;
        std::int64_t bytes = 0;
        std::int64_t denied = 0;  ///< folders below the root that could not be opened or listed
        std::int64_t leftOut = 0; ///< items that the user's patterns match
        std::string current;      ///< path (bytes) of the folder finished last, or waited for
    };

    /// Adds one folder's own files and bytes and names it as the one finished last.
    void record(std::int64_t files, std::int64_t bytes, std::string_view path);
    void recordDenied();
    void recordLeftOut();
    /// Names a folder that has been waited for long, in the place of the one finished last.
    void recordWait(std::string_view path);
    /// Asks the walk to stop; it does at the next folder it would enter, and in the middle of a very long listing.
    void cancel();
    [[nodiscard]] bool isCancelled() const;
    /// Ends the walk because of something that would make its figures wrong. The first failure counts.
    void fail(Error error);
    /// Where there is one, the tree is not a result to be shown.
    [[nodiscard]] std::optional<Error> failure() const;
    /// Whether the walk is to end, for either reason. Cheap enough to be asked for every file.
    [[nodiscard]] bool shouldStop() const { return m_shouldStop.load(std::memory_order_relaxed); }
    [[nodiscard]] Counters counters() const;

private:
    mutable std::mutex m_lock;
    // Guarded by m_lock.
    Counters m_counters;
    bool m_cancelled = false;
    std::optional<Error> m_failure;
    // Set under m_lock, read without.
    std::atomic<bool> m_shouldStop = false;
};

} // namespace corvane
