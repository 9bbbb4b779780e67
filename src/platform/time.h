#pragma once

#include <chrono>

namespace corvane {

/// A point in time in UTC, with a resolution of one second.
using Time = std::chrono::sys_seconds;

[[nodiscard]] inline Time currentTime()
{
    return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

/// Means "unknown": midnight of 1 January of the year 1, earlier than any time in a file system.
inline constexpr Time distantPast{std::chrono::seconds{-62135596800}};

} // namespace corvane
