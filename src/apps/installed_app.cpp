#include "apps/installed_app.h"

#include "core/checked_add.h"

namespace corvane {

namespace {

constexpr int fewestMonths = 6;

} // namespace

std::int64_t InstalledApp::exactLeftoverSize() const
{
    std::int64_t sum = 0;
    for (const Leftover &leftover : leftovers) {
        if (leftover.match == Leftover::Match::exact)
            sum = checkedAdd(sum, leftover.size);
    }
    return sum;
}

std::optional<int> InstalledApp::unusedForMonths(Time now, const Calendar &calendar) const
{
    if (!lastUsed)
        return std::nullopt;
    const int months = calendar.wholeMonths(*lastUsed, now);
    return months >= fewestMonths ? std::optional(months) : std::nullopt;
}

} // namespace corvane
