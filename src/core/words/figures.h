#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

/// The units for byte counts: KB of 1000 bytes, KiB of 1024, or plain bytes.
enum class ByteUnits { decimal, binary, bytes };

/// Sets the units for the whole program; decimal by default. Call before other threads start.
void useByteUnits(ByteUnits units);
[[nodiscard]] ByteUnits byteUnits();

/// A file size for display: "Zero KB", "1 byte", "999 bytes", "12 KB", "12.3 MB", "12.35 GB"; trailing zeros dropped,
/// always a decimal point. In binary units "12 KiB", in bytes "12,345 bytes". A negative count is shown as 0.
[[nodiscard]] std::string formatByteCount(std::int64_t bytes);

/// A count for display: "7", "1,234,567".
[[nodiscard]] std::string formatCount(std::int64_t count);

/// The same with a noun: "1 file", "12,345 files".
[[nodiscard]] std::string formatCount(std::int64_t count, std::string_view one, std::string_view many);

/// The noun for a count: `one` only for 1.
[[nodiscard]] std::string_view plural(std::int64_t count, std::string_view one, std::string_view many);

/// `part` as a percentage of `whole`, from 0 to 100; 0 if the whole is 0.
[[nodiscard]] double percentOf(std::int64_t part, std::int64_t whole);

/// A percentage with `digits` digits after the point: "4.3%". Ties round to even.
[[nodiscard]] std::string formatPercent(double percent, int digits = 1);

/// How long ago something was, in the largest unit that fits: "just now", "5 minutes ago", "1 day ago".
[[nodiscard]] std::string formatAgo(std::int64_t seconds);

} // namespace corvane
