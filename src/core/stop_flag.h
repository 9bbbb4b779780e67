#pragma once

#include <atomic>

namespace corvane {

/// Set when a result is no longer needed; polled by the work that produces it. Any thread.
using StopFlag = std::atomic<bool>;

/// For work that cannot be stopped.
inline const StopFlag neverStopped = false;

} // namespace corvane
