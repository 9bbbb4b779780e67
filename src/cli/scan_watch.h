#pragma once

#include <array>
#include <thread>

#include "core/scan_progress.h"

namespace corvane {

/// Stands beside a running scan: as long as it lives, Ctrl-C (SIGINT) and SIGTERM stop the scan instead of the
/// program, the second time the program, and a terminal on standard error shows how far the scan is. Made and
/// destroyed on the main thread; at most one at a time.
class ScanWatch {
public:
    enum class Display { hidden, shown };

    ScanWatch(ScanProgress &progress, Display display);
    ~ScanWatch();

    ScanWatch(const ScanWatch &) = delete;
    ScanWatch &operator=(const ScanWatch &) = delete;

private:
    void run();
    void draw();

    ScanProgress &m_progress;
    const Display m_display;
    std::array<int, 2> m_wakeUp{-1, -1}; ///< a pipe: constant after construction
    std::thread m_thread;                ///< the only one that draws
};

} // namespace corvane
