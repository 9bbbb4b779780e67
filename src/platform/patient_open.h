#pragma once

#include <atomic>
#include <chrono>
#include <thread>

#include "platform/error.h"

namespace corvane {

/// Whether the process or the system has run out of descriptors.
[[nodiscard]] inline bool isOutOfDescriptors(const Error &error)
{
    return error.code == std::errc::too_many_files_open || error.code == std::errc::too_many_files_open_in_system;
}

/// The number of threads waiting for a descriptor: while there are any, others keep only what they need.
inline std::atomic<int> waitingForDescriptors = 0;

/// Calls `open`, which returns an Expected, and retries while it fails because the process or the system has run out of
/// descriptors: `giveBack` closes what the caller can do without, and other walks get up to a second to do the same.
/// Treating such a failure as an unreadable folder would make the folder vanish from the result.
template <typename Open, typename GiveBack>
[[nodiscard]] auto openPatiently(const Open &open, const GiveBack &giveBack) -> decltype(open())
{
    constexpr int attempts = 200;
    constexpr std::chrono::milliseconds pause(5);
    const auto hasRunOut = [](const auto &opened) { return !opened && isOutOfDescriptors(opened.error()); };
    auto opened = open();
    if (!hasRunOut(opened))
        return opened;
    ++waitingForDescriptors;
    giveBack();
    opened = open();
    for (int attempt = 1; attempt < attempts && hasRunOut(opened); ++attempt) {
        std::this_thread::sleep_for(pause);
        opened = open();
    }
    --waitingForDescriptors;
    return opened;
}

/// For callers that hold nothing.
template <typename Open>
[[nodiscard]] auto openPatiently(const Open &open) -> decltype(open())
{
    return openPatiently(open, [] {});
}

} // namespace corvane
