#pragma once

#include <atomic>
#include <chrono>
#include <thread>

#include "platform/error.h"

namespace corvane {

/// Whether the program or the system had no file number left.
[[nodiscard]] inline bool hasRunOutOfFileNumbers(const Error &error)
{
    return error.code == std::errc::too_many_files_open || error.code == std::errc::too_many_files_open_in_system;
}

/// How many threads are waiting for a file number: as long as there are any, others hold only what they need.
inline std::atomic<int> waitingForFileNumbers = 0;

/// Calls `open`, which answers an Expected, until it fails for another reason than that the program or the system has
/// no file number left: then `giveBack` closes what the caller can do without, and other walks get up to a second
/// to do the same. To take such a failure for a folder that may not be read would make the folder vanish.
template <typename Open, typename GiveBack>
[[nodiscard]] auto openPatiently(const Open &open, const GiveBack &giveBack) -> decltype(open())
{
    constexpr int attempts = 200;
    constexpr std::chrono::milliseconds pause(5);
    const auto hasRunOut = [](const auto &opened) { return !opened && hasRunOutOfFileNumbers(opened.error()); };
    auto opened = open();
    if (!hasRunOut(opened))
        return opened;
    ++waitingForFileNumbers;
    giveBack();
    opened = open();
    for (int attempt = 1; attempt < attempts && hasRunOut(opened); ++attempt) {
        std::this_thread::sleep_for(pause);
        opened = open();
    }
    --waitingForFileNumbers;
    return opened;
}

/// For callers that hold nothing.
template <typename Open>
[[nodiscard]] auto openPatiently(const Open &open) -> decltype(open())
{
    return openPatiently(open, [] {});
}

} // namespace corvane
