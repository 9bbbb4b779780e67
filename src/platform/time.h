#pragma once

#include <chrono>

namespace corvane {

/// A point in time to the second, in UTC.
using Time = std::chrono::sys_seconds;

[[nodiscard]] inline Time currentTime()
{
    return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

/// Stands for "unknown": midnight of 1 January of the year 1, before anything that a file system records.
inline constexpr Time distantPast{std::chrono::seconds{-62135596800}};

} // namespace corvane
