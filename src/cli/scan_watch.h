#pragma once

#include "cli/watch.h"
#include "core/scan_progress.h"

namespace corvane {

/// Handles signals and shows progress while a scan runs.
class ScanWatch {
public:
    using Display = Watch::Display;

    ScanWatch(ScanProgress &progress, Display display);

private:
    Watch m_watch;
};

} // namespace corvane
