#pragma once

#include <atomic>

namespace corvane {

/// Set by whoever no longer wants a result; looked at now and then by whoever makes it. Any thread.
using StopFlag = std::atomic<bool>;

/// For work that nobody stops.
inline const StopFlag neverStopped = false;

} // namespace corvane
