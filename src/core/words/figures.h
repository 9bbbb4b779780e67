#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

/// What byte counts are written in: KB of 1000 bytes, KiB of 1024, or all bytes.
enum class ByteUnits { decimal, binary, bytes };

/// Holds for the whole program from now on, as its language does; decimal until then. Before other threads start.
void useByteUnits(ByteUnits units);
[[nodiscard]] ByteUnits byteUnits();

/// A byte count as files' sizes are written: "Zero KB", "1 byte", "999 bytes", "12 KB", "12.3 MB", "12.35 GB";
/// trailing zeros dropped, always a point. In binary units "12 KiB", in bytes "12,345 bytes". A negative count is
/// written as 0.
[[nodiscard]] std::string formatByteCount(std::int64_t bytes);

/// A count of items as it is written everywhere: "7", "1,234,567".
[[nodiscard]] std::string formatCount(std::int64_t count);

/// The same with what is counted: "1 file", "12,345 files".
[[nodiscard]] std::string formatCount(std::int64_t count, std::string_view one, std::string_view many);

/// The word that goes with a count: `one` for 1 alone.
[[nodiscard]] std::string_view plural(std::int64_t count, std::string_view one, std::string_view many);

/// The share of `whole` that `part` is, from 0 to 100; 0 where the whole is nothing.
[[nodiscard]] double percentOf(std::int64_t part, std::int64_t whole);

/// A percentage with that many digits after the point: "4.3%". What lies halfway goes to the even figure.
[[nodiscard]] std::string formatPercent(double percent, int digits = 1);

/// How long ago something was, in the largest unit that fits: "just now", "5 minutes ago", "1 day ago".
[[nodiscard]] std::string formatAgo(std::int64_t seconds);

} // namespace corvane
