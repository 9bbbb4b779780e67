#pragma once

#include <chrono>
#include <functional>

#include "platform/time.h"

namespace corvane {

/// Reckons in the calendar of one time zone. Immutable; any thread.
class Calendar {
public:
    /// How far the clocks of a zone are ahead of UTC at a moment. Called from any thread.
    using Offset = std::function<std::chrono::seconds(Time)>;

    explicit Calendar(Offset offset);

    /// The largest n for which `from` plus n months, the day pinned to the end of a shorter month, is not later than
    /// `to`; 0 where `to` comes first. A time of day that the clocks skip counts as so much later, one that they show
    /// twice as the first of the two.
    [[nodiscard]] int wholeMonths(Time from, Time to) const;

    /// The moment so many months before, the day pinned to the end of a shorter month, under the same rule for times
    /// that the clocks skip or show twice.
    [[nodiscard]] Time monthsBefore(Time time, int count) const;

private:
    [[nodiscard]] std::chrono::local_seconds local(Time time) const;
    [[nodiscard]] Time moment(std::chrono::local_seconds time) const;

    const Offset m_offset;
};

/// The calendar of the time zone that is set now.
[[nodiscard]] const Calendar &systemCalendar();

} // namespace corvane
