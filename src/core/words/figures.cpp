#include "core/words/figures.h"

#include <fmt/format.h>

namespace corvane {
namespace {

__extension__ using Wide = unsigned __int128;

ByteUnits unitsInUse = ByteUnits::decimal;

struct Unit {
    char prefix;
    int digits;          ///< shown after the point
    std::uint64_t scale; ///< ten to the power of `digits`
};

constexpr Unit largerUnits[] = {{'K', 0, 1}, {'M', 1, 10}, {'G', 2, 100}, {'T', 2, 100}, {'P', 2, 100}, {'E', 2, 100}};

} // namespace

void useByteUnits(ByteUnits units)
{
    unitsInUse = units;
}

ByteUnits byteUnits()
{
    return unitsInUse;
}

std::string formatByteCount(std::int64_t bytes)
{
    const bool isBinary = unitsInUse == ByteUnits::binary;
    const std::uint64_t base = isBinary ? 1024 : 1000;
    const std::string_view ending = isBinary ? "iB" : "B";
    if (bytes <= 0)
        return unitsInUse == ByteUnits::bytes ? "0 bytes" : fmt::format("Zero K{}", ending);
    if (unitsInUse == ByteUnits::bytes || static_cast<std::uint64_t>(bytes) < base)
        return formatCount(bytes, "byte", "bytes");

    // Choose the unit by the rounded figure, so that "1000 KB" never appears. 63 bits end at 9.22 EB, so the last unit
    // always fits.
    Wide size = base;
    for (const Unit &unit : largerUnits) {
        const auto rounded = static_cast<std::uint64_t>((static_cast<Wide>(bytes) * unit.scale + size / 2) / size);
        size *= base;
        if (rounded >= base * unit.scale)
            continue;
        std::string text = fmt::format("{}", rounded / unit.scale);
        if (const std::uint64_t fraction = rounded % unit.scale; fraction != 0) {
            text += fmt::format(".{:0{}}", fraction, unit.digits);
            while (text.back() == '0')
                text.pop_back();
        }
        return fmt::format("{} {}{}", text, unit.prefix, ending);
    }
    return {};
}

std::string formatCount(std::int64_t count)
{
    std::string digits = fmt::format("{}", count);
    const std::size_t first = count < 0 ? 1 : 0;
    for (std::size_t position = digits.size(); position > first + 3;) {
        position -= 3;
        digits.insert(position, 1, ',');
    }
    return digits;
}

std::string formatCount(std::int64_t count, std::string_view one, std::string_view many)
{
    return fmt::format("{} {}", formatCount(count), plural(count, one, many));
}

std::string_view plural(std::int64_t count, std::string_view one, std::string_view many)
{
    return count == 1 ? one : many;
}

double percentOf(std::int64_t part, std::int64_t whole)
{
    return whole > 0 ? 100.0 * static_cast<double>(part) / static_cast<double>(whole) : 0;
}

std::string formatPercent(double percent, int digits)
{
    return fmt::format("{:.{}f}%", percent, digits);
}

std::string formatAgo(std::int64_t seconds)
{
    constexpr std::int64_t minute = 60;
    constexpr std::int64_t hour = 60 * minute;
    constexpr std::int64_t day = 24 * hour;
    if (seconds >= day)
        return formatCount(seconds / day, "day", "days") + " ago";
    if (seconds >= hour)
        return formatCount(seconds / hour, "hour", "hours") + " ago";
    if (seconds >= minute)
        return formatCount(seconds / minute, "minute", "minutes") + " ago";
    return "just now";
}

} // namespace corvane
