#pragma once

#include "core/stop_flag.h"

namespace corvane {

/// As long as it lives, Ctrl-C (SIGINT) and SIGTERM set a flag instead of ending the program; the second time they end
/// it. Made and destroyed on the main thread; at most one at a time.
class StopSignal {
public:
    StopSignal();
    ~StopSignal();

    StopSignal(const StopSignal &) = delete;
    StopSignal &operator=(const StopSignal &) = delete;

    [[nodiscard]] static const StopFlag &flag();
};

} // namespace corvane
