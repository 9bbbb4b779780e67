#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/time.h"

namespace corvane {

/// The time zone of a written date.
enum class WrittenIn : std::uint8_t { localTime, utc };

/// The time in a text that matches a pattern such as "yyyy-MM-dd-HHmmss": each of the letters yMdHms stands for a
/// digit, any other character for itself. Nothing if the text does not match or the date does not exist.
[[nodiscard]] std::optional<Time> timeOf(std::string_view text, std::string_view pattern, WrittenIn clock);

} // namespace corvane
