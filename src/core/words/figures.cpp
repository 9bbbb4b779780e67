#include "core/words/figures.h"

#include <fmt/format.h>

namespace corvane {
namespace {

struct Unit {
    const char *symbol;
    std::uint64_t bytes;
    int digits;          ///< shown after the point
    std::uint64_t scale; ///< ten to the power of `digits`
};

constexpr Unit units[] = {
    {"KB", 1'000, 0, 1},
    {"MB", 1'000'000, 1, 10},
    {"GB", 1'000'000'000, 2, 100},
    {"TB", 1'000'000'000'000, 2, 100},
    {"PB", 1'000'000'000'000'000, 2, 100},
    {"EB", 1'000'000'000'000'000'000, 2, 100},
};

} // namespace

std::string formatByteCount(std::int64_t bytes)
{
    if (bytes <= 0)
        return "Zero KB";
    if (bytes == 1)
        return "1 byte";
    if (bytes < 1000)
        return fmt::format("{} bytes", bytes);

    // The unit is chosen by the rounded figure, so that no "1000 KB" appears. 63 bits end at 9.22 EB, so the
    // last unit always fits.
    for (const Unit &unit : units) {
        const std::uint64_t step = unit.bytes / unit.scale;
        const std::uint64_t rounded = (static_cast<std::uint64_t>(bytes) + step / 2) / step;
        if (rounded >= 1000 * unit.scale)
            continue;
        std::string text = fmt::format("{}", rounded / unit.scale);
        if (const std::uint64_t fraction = rounded % unit.scale; fraction != 0) {
            text += fmt::format(".{:0{}}", fraction, unit.digits);
            while (text.back() == '0')
                text.pop_back();
        }
        return text + ' ' + unit.symbol;
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
