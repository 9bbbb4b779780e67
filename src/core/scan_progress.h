#pragma once

#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>

namespace corvane {

/// The one object that a scan's threads and the main thread share: its counters, and the wish to stop.
/// Its identity is the scan's token. Every member may be called from any thread.
class ScanProgress {
public:
    struct Counters {
        std::int64_t files = 0;
        std::int64_t bytes = 0;
        std::string current; ///< path (bytes) of the folder finished last
    };

    /// Adds one folder's own files and bytes and names it as the one finished last.
    void record(std::int64_t files, std::int64_t bytes, std::string_view path);
    /// Asks the walk to stop; it does at the next folder it would enter.
    void cancel();
    [[nodiscard]] bool isCancelled() const;
    [[nodiscard]] Counters counters() const;

private:
    mutable std::mutex m_lock;
    // Guarded by m_lock.
    Counters m_counters;
    bool m_cancelled = false;
};

} // namespace corvane
