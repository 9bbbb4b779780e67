#pragma once

#include <cerrno>

namespace corvane {

/// Makes a call of the kernel, which answers a negative number where it fails, again as long as a signal interrupts
/// it: over a network a folder may take its time.
template <typename Call>
[[nodiscard]] auto uninterrupted(const Call &call) -> decltype(call())
{
    for (;;) {
        const auto result = call();
        if (result >= 0 || errno != EINTR)
            return result;
    }
}

} // namespace corvane
