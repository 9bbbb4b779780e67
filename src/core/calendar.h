#pragma once

#include "platform/time.h"

namespace corvane {

/// Reckons in the calendar of one time zone. Immutable; any thread.
class Calendar {
public:
    virtual ~Calendar() = default;

    /// The largest n for which `from` plus n months, the day pinned to the end of a shorter month, is not later than
    /// `to`; 0 where `to` comes first.
    [[nodiscard]] virtual int wholeMonths(Time from, Time to) const = 0;
};

/// The calendar of the user's own time zone.
[[nodiscard]] const Calendar &systemCalendar();

} // namespace corvane
