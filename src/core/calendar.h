#pragma once

#include <chrono>
#include <functional>

#include "platform/time.h"

namespace corvane {

/// Date arithmetic in one time zone. Immutable; any thread.
class Calendar {
public:
    /// The zone's UTC offset at a given moment. Called from any thread.
    using Offset = std::function<std::chrono::seconds(Time)>;

    explicit Calendar(Offset offset);

    /// The largest n for which `from` plus n months is not later than `to`, with the day clamped to the end of a
    /// shorter month; 0 if `to` is earlier. A local time skipped by a clock change is moved later by the gap; a
    /// repeated one means its first occurrence.
    [[nodiscard]] int wholeMonths(Time from, Time to) const;

    /// The time `count` months earlier, with the day clamped to the end of a shorter month. Skipped and repeated local
    /// times are handled as above.
    [[nodiscard]] Time monthsBefore(Time time, int count) const;

private:
    [[nodiscard]] std::chrono::local_seconds local(Time time) const;
    [[nodiscard]] Time moment(std::chrono::local_seconds time) const;

    const Offset m_offset;
};

/// The calendar of the current time zone.
[[nodiscard]] const Calendar &systemCalendar();

} // namespace corvane
