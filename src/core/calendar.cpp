#include "core/calendar.h"

#include <algorithm>
#include <ctime>
#include <utility>

namespace corvane {

namespace {

using std::chrono::local_days;
using std::chrono::local_seconds;
using std::chrono::months;
using std::chrono::year_month;
using std::chrono::year_month_day;

// File systems may report times outside this range, for which the arithmetic would overflow.
constexpr Time earliest = distantPast;
constexpr Time latest{std::chrono::sys_days{std::chrono::year{9999} / 12 / 31}};

year_month_day addMonths(const year_month_day &date, int count)
{
    const year_month month = year_month{date.year(), date.month()} + months{count};
    const year_month_day last{month / std::chrono::last};
    return month / std::min(date.day(), last.day());
}

std::chrono::seconds systemOffset(Time time)
{
    const auto seconds = static_cast<std::time_t>(time.time_since_epoch().count());
    std::tm local{};
    return std::chrono::seconds{::localtime_r(&seconds, &local) != nullptr ? local.tm_gmtoff : 0};
}

} // namespace

Calendar::Calendar(Offset offset) : m_offset(std::move(offset)) {}

int Calendar::wholeMonths(Time from, Time to) const
{
    from = std::clamp(from, earliest, latest);
    to = std::clamp(to, earliest, latest);
    if (to <= from)
        return 0;
    const local_seconds start = local(from);
    const local_days startDay = std::chrono::floor<std::chrono::days>(start);
    const year_month_day first{startDay};
    const year_month_day last{std::chrono::floor<std::chrono::days>(local(to))};
    // Start one above the difference of the months: if clocks are set back at the end of a month, its last day repeats.
    int count = static_cast<int>((last.year() - first.year()) / months{1}) +
                (static_cast<int>(static_cast<unsigned>(last.month())) -
                 static_cast<int>(static_cast<unsigned>(first.month()))) +
                1;
    while (count > 0 && moment(local_days{addMonths(first, count)} + (start - startDay)) > to)
        --count;
    return count;
}

Time Calendar::monthsBefore(Time time, int count) const
{
    const local_seconds end = local(std::clamp(time, earliest, latest));
    const local_days day = std::chrono::floor<std::chrono::days>(end);
    return moment(local_days{addMonths(year_month_day{day}, -count)} + (end - day));
}

local_seconds Calendar::local(Time time) const
{
    return local_seconds{(time + m_offset(time)).time_since_epoch()};
}

Time Calendar::moment(local_seconds time) const
{
    // Assumes at most one change of the UTC offset per day.
    const Time asUtc{time.time_since_epoch()};
    const Time before = asUtc - m_offset(asUtc - std::chrono::days{1});
    if (local(before) == time)
        return before;
    const Time after = asUtc - m_offset(asUtc + std::chrono::days{1});
    return local(after) == time ? after : before;
}

const Calendar &systemCalendar()
{
    static const Calendar calendar(systemOffset);
    ::tzset(); // localtime_r does not necessarily pick up a changed time zone by itself
    return calendar;
}

} // namespace corvane
