#pragma once

#include <atomic>

namespace corvane {

/// Set when a result is no longer needed; read now and then by the work that makes it. Any thread.
using StopFlag = std::atomic<bool>;

/// For work that is never stopped.
inline const StopFlag neverStopped = false;

} // namespace corvane
