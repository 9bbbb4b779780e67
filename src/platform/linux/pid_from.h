#pragma once

#include <charconv>
#include <string_view>

#include <sys/types.h>

namespace corvane {

/// The PID for a name in "/proc"; 0 for any other name.
[[nodiscard]] inline pid_t pidFrom(std::string_view name)
{
    pid_t pid = 0;
    const auto [end, failure] = std::from_chars(name.data(), name.data() + name.size(), pid);
    return failure == std::errc{} && end == name.data() + name.size() ? pid : 0;
}

} // namespace corvane
