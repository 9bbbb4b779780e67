#pragma once

#include <cerrno>

namespace corvane {

/// Repeats a system call, which returns a negative number on failure, while signals interrupt it: calls on a network
/// folder may take long.
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
