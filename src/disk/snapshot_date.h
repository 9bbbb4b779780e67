#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/time.h"

namespace corvane {

/// Whose clock a date was written by.
enum class WrittenIn : std::uint8_t { localTime, utc };

/// The moment that a text of the pattern's shape tells, such as "yyyy-MM-dd-HHmmss": each of the letters yMdHms stands
/// for a digit, any other character for itself. Nothing for another shape or a date that does not exist.
[[nodiscard]] std::optional<Time> timeOf(std::string_view text, std::string_view pattern, WrittenIn clock);

} // namespace corvane
