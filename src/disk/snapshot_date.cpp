#include "disk/snapshot_date.h"

#include <array>
#include <ctime>

namespace corvane {

std::optional<Time> timeOf(std::string_view text, std::string_view pattern, WrittenIn clock)
{
    constexpr std::string_view letters = "yMdHms";
    std::array<int, letters.size()> figures{};
    if (text.size() != pattern.size())
        return std::nullopt;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t letter = letters.find(pattern[i]);
        if (letter == std::string_view::npos) {
            if (text[i] != pattern[i])
                return std::nullopt;
            continue;
        }
        if (text[i] < '0' || text[i] > '9')
            return std::nullopt;
        figures.at(letter) = figures.at(letter) * 10 + (text[i] - '0');
    }
    const auto [year, month, day, hour, minute, second] = figures;
    const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    if (!date.ok() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    if (clock == WrittenIn::utc) {
        return std::chrono::sys_days(date) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
               std::chrono::seconds(second);
    }
    std::tm local{};
    local.tm_year = year - 1900;
    local.tm_mon = month - 1;
    local.tm_mday = day;
    local.tm_hour = hour;
    local.tm_min = minute;
    local.tm_sec = second;
    local.tm_isdst = -1;
    return Time(std::chrono::seconds(std::mktime(&local)));
}

} // namespace corvane
