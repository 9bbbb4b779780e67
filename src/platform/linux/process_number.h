#pragma once

#include <charconv>
#include <string_view>

#include <sys/types.h>

namespace corvane {

/// The PID for a name in "/proc"; 0 for any other name.
[[nodiscard]] inline pid_t processNumber(std::string_view name)
{
    pid_t number = 0;
    const auto [end, failure] = std::from_chars(name.data(), name.data() + name.size(), number);
    return failure == std::errc{} && end == name.data() + name.size() ? number : 0;
}

} // namespace corvane
