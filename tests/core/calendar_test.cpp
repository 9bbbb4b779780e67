#include "core/calendar.h"

#include <cstdlib>
#include <limits>
#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace std::chrono;

constexpr Time at(year_month_day date, seconds timeOfDay = hours{12})
{
    return Time{sys_days{date} + timeOfDay};
}

const Calendar utc{[](Time) { return seconds{0}; }};

/// A zone that is an hour ahead of UTC, and two from the end of March to the end of October of 2025.
const Calendar withSummerTime{[](Time time) {
    const bool isSummer = time >= at(2025y / 3 / 30, hours{1}) && time < at(2025y / 10 / 26, hours{1});
    return hours{isSummer ? 2 : 1};
}};

TEST(Calendar, AMonthIsWholeAtTheSameTimeOfDay)
{
    EXPECT_EQ(utc.wholeMonths(at(2025y / 5 / 19), at(2025y / 11 / 19)), 6);
    EXPECT_EQ(utc.wholeMonths(at(2025y / 5 / 19), at(2025y / 11 / 19) - seconds{1}), 5);
    EXPECT_EQ(utc.wholeMonths(at(2025y / 5 / 19), at(2025y / 11 / 19) + seconds{1}), 6);
}

TEST(Calendar, TheDayIsPinnedToTheEndOfAShorterMonth)
{
    EXPECT_EQ(utc.wholeMonths(at(2025y / 3 / 31), at(2025y / 9 / 30)), 6);
    EXPECT_EQ(utc.wholeMonths(at(2025y / 3 / 31), at(2025y / 9 / 30) - seconds{1}), 5);
    EXPECT_EQ(utc.wholeMonths(at(2025y / 8 / 31), at(2026y / 2 / 28)), 6);
    EXPECT_EQ(utc.wholeMonths(at(2025y / 8 / 31), at(2026y / 2 / 27)), 5);
}

TEST(Calendar, AMonthInBetweenPinsNothing)
{
    EXPECT_EQ(utc.wholeMonths(at(2025y / 1 / 31), at(2025y / 3 / 30)), 1);
    EXPECT_EQ(utc.wholeMonths(at(2025y / 1 / 31), at(2025y / 3 / 31)), 2);
}

TEST(Calendar, LeapDaysCount)
{
    EXPECT_EQ(utc.wholeMonths(at(2023y / 8 / 31), at(2024y / 2 / 28)), 5);
    EXPECT_EQ(utc.wholeMonths(at(2023y / 8 / 31), at(2024y / 2 / 29)), 6);
    EXPECT_EQ(utc.wholeMonths(at(2024y / 2 / 29), at(2025y / 2 / 28)), 12);
    EXPECT_EQ(utc.wholeMonths(at(2024y / 2 / 29), at(2025y / 2 / 28) - seconds{1}), 11);
    EXPECT_EQ(utc.wholeMonths(at(2024y / 2 / 29), at(2028y / 2 / 28)), 47);
    EXPECT_EQ(utc.wholeMonths(at(2024y / 2 / 29), at(2028y / 2 / 29)), 48);
}

TEST(Calendar, MonthsBeforeKeepTheTimeOfDayAndPinTheDay)
{
    EXPECT_EQ(utc.monthsBefore(at(2026y / 11 / 22), 12), at(2025y / 11 / 22));
    EXPECT_EQ(utc.monthsBefore(at(2025y / 8 / 31), 6), at(2025y / 2 / 28));
    EXPECT_EQ(utc.monthsBefore(at(2024y / 8 / 31), 6), at(2024y / 2 / 29));
    EXPECT_EQ(utc.monthsBefore(at(2024y / 2 / 29), 12), at(2023y / 2 / 28));
    EXPECT_EQ(utc.monthsBefore(at(2024y / 2 / 29), 48), at(2020y / 2 / 29));
    EXPECT_EQ(utc.monthsBefore(at(2025y / 1 / 15), 60), at(2020y / 1 / 15));
    EXPECT_EQ(utc.monthsBefore(at(2025y / 1 / 15), 0), at(2025y / 1 / 15));
}

TEST(Calendar, MonthsBeforeFollowTheClocksAcrossSummerTime)
{
    EXPECT_EQ(withSummerTime.monthsBefore(at(2025y / 11 / 15), 6), at(2025y / 5 / 15) - hours{1});
    EXPECT_EQ(withSummerTime.monthsBefore(at(2025y / 5 / 15), 6), at(2024y / 11 / 15) + hours{1});
}

TEST(Calendar, FiveMonthsAndTwentyNineDaysAreFive)
{
    EXPECT_EQ(utc.wholeMonths(at(2025y / 5 / 20), at(2025y / 11 / 18)), 5);
}

TEST(Calendar, ClocksThatWereChangedInBetweenShiftTheMoment)
{
    // Local noon is 11:00 UTC in winter and 10:00 UTC in summer.
    const Time winter = at(2025y / 1 / 15, hours{11});
    EXPECT_EQ(withSummerTime.wholeMonths(winter, at(2025y / 7 / 15, hours{10})), 6);
    EXPECT_EQ(withSummerTime.wholeMonths(winter, at(2025y / 7 / 15, hours{10}) - seconds{1}), 5);
    const Time summer = at(2025y / 5 / 26, hours{10});
    EXPECT_EQ(withSummerTime.wholeMonths(summer, at(2025y / 11 / 26, hours{11})), 6);
    EXPECT_EQ(withSummerTime.wholeMonths(summer, at(2025y / 11 / 26, hours{11}) - seconds{1}), 5);
}

TEST(Calendar, TheDayOfTheZoneCounts)
{
    // 00:30 on 1 June local time is still May in UTC.
    const Time start = at(2025y / 5 / 31, hours{22} + minutes{30});
    EXPECT_EQ(withSummerTime.wholeMonths(start, at(2025y / 11 / 30, hours{23} + minutes{30})), 6);
    EXPECT_EQ(withSummerTime.wholeMonths(start, at(2025y / 11 / 30, hours{23} + minutes{30}) - seconds{1}), 5);
}

TEST(Calendar, ATimeThatTheClocksSkipCountsAsAnHourLater)
{
    // 02:30 on 30 March does not exist locally; clocks show 03:30 at 01:30 UTC.
    const Time start = at(2024y / 9 / 30, hours{1} + minutes{30});
    EXPECT_EQ(withSummerTime.wholeMonths(start, at(2025y / 3 / 30, hours{1} + minutes{30})), 6);
    EXPECT_EQ(withSummerTime.wholeMonths(start, at(2025y / 3 / 30, hours{1} + minutes{30}) - seconds{1}), 5);
}

TEST(Calendar, OfATimeThatTheClocksShowTwiceTheFirstCounts)
{
    // 02:30 on 26 October occurs twice, at 00:30 and 01:30 UTC.
    const Time start = at(2025y / 4 / 26, minutes{30});
    EXPECT_EQ(withSummerTime.wholeMonths(start, at(2025y / 10 / 26, minutes{30})), 6);
    EXPECT_EQ(withSummerTime.wholeMonths(start, at(2025y / 10 / 26, minutes{30}) - seconds{1}), 5);
}

TEST(Calendar, ClocksSetBackIntoTheMonthBeforeLoseNoMonth)
{
    // At 00:30 on 1 November clocks are set back to 23:30 on 31 October.
    const Calendar zone{[](Time time) { return seconds{time < at(2025y / 11 / 1, minutes{30}) ? 0 : -3600}; }};
    EXPECT_EQ(zone.wholeMonths(at(2025y / 5 / 1, minutes{10}), at(2025y / 11 / 1, minutes{45})), 6);
}

TEST(Calendar, AFutureTimeIsZeroMonthsAgo)
{
    EXPECT_EQ(utc.wholeMonths(at(2025y / 5 / 19), at(2025y / 5 / 19)), 0);
    EXPECT_EQ(utc.wholeMonths(at(2030y / 1 / 1), at(2025y / 5 / 19)), 0);
}

TEST(Calendar, TimesBeyondTheCalendarAreClamped)
{
    const Time first{seconds{std::numeric_limits<std::int64_t>::min()}};
    const Time last{seconds{std::numeric_limits<std::int64_t>::max()}};
    EXPECT_EQ(utc.wholeMonths(first, last), utc.wholeMonths(distantPast, at(9999y / 12 / 31, seconds{0})));
    EXPECT_EQ(utc.wholeMonths(last, first), 0);
    EXPECT_EQ(systemCalendar().wholeMonths(first, last), utc.wholeMonths(distantPast, at(9999y / 12 / 31, seconds{0})));
}

/// Sets another time zone for the process until it is destroyed.
class ZoneOf {
public:
    explicit ZoneOf(const char *zone)
    {
        if (const char *const before = std::getenv("TZ"))
            m_before = before;
        ::setenv("TZ", zone, 1);
    }
    ZoneOf(const ZoneOf &) = delete;
    ZoneOf &operator=(const ZoneOf &) = delete;
    ~ZoneOf()
    {
        if (m_before)
            ::setenv("TZ", m_before->c_str(), 1);
        else
            ::unsetenv("TZ");
        static_cast<void>(systemCalendar());
    }

private:
    std::optional<std::string> m_before;
};

TEST(SystemCalendar, ReckonsInTheZoneThatIsSet)
{
    // An hour ahead of UTC, two in summer; the rules are in the text, so no time zone database is needed.
    const ZoneOf zone("CET-1CEST,M3.5.0,M10.5.0/3");
    const Time winter = at(2025y / 1 / 15, hours{11});
    EXPECT_EQ(systemCalendar().wholeMonths(winter, at(2025y / 7 / 15, hours{10})), 6);
    EXPECT_EQ(systemCalendar().wholeMonths(winter, at(2025y / 7 / 15, hours{10}) - seconds{1}), 5);
}

TEST(SystemCalendar, FollowsAChangeOfTheZone)
{
    // 22:30 UTC on 30 January: already the 31st two hours further east, which is pinned to 28 February.
    const Time start = at(2025y / 1 / 30, hours{22} + minutes{30});
    const Time end = at(2025y / 2 / 27, hours{22} + minutes{30});
    {
        const ZoneOf zone("UTC0");
        EXPECT_EQ(systemCalendar().wholeMonths(start, end), 0);
    }
    const ZoneOf zone("EAST-2");
    EXPECT_EQ(systemCalendar().wholeMonths(start, end), 1);
    EXPECT_EQ(systemCalendar().wholeMonths(start, end - seconds{1}), 0);
}

} // namespace
} // namespace corvane
