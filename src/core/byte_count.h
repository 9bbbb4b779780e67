#pragma once

#include <cstdint>
#include <string>

namespace corvane {

/// A byte count as files' sizes are written: decimal units, "Zero KB", "1 byte", "999 bytes", "12 KB",
/// "12.3 MB", "12.35 GB"; trailing zeros dropped, always a point. A negative count is written as 0.
[[nodiscard]] std::string formatByteCount(std::int64_t bytes);

/// A count of items as it is written everywhere: "7", "1,234,567".
[[nodiscard]] std::string formatCount(std::int64_t count);

} // namespace corvane
