#include "shell/ui/bar_layout.h"

#include <algorithm>

namespace corvane {

namespace {

double bytes(std::int64_t size)
{
    return static_cast<double>(std::max<std::int64_t>(0, size));
}

} // namespace

std::vector<BarPart> barLayout(const BarDivision &division)
{
    std::vector<BarPart> parts(division.sizes.size());
    if (parts.empty() || division.width <= 0)
        return parts;
    const auto count = static_cast<double>(parts.size());
    const double usable = std::max(0.0, division.width - division.gap * (count - 1));
    const double least = std::min(division.minimum, usable / count);

    // Raising a part to the minimum shrinks the others, which may push another one below it: repeat until none is
    // below. Each round but the last raises at least one part.
    std::vector<bool> raised(parts.size(), false);
    double pointsPerByte = 0;
    for (bool changed = true; changed;) {
        changed = false;
        double left = usable;
        double sum = division.rest;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if (raised[i])
                left -= least;
            else
                sum += bytes(division.sizes[i]);
        }
        pointsPerByte = sum > 0 ? left / sum : 0;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if (!raised[i] && bytes(division.sizes[i]) * pointsPerByte < least) {
                raised[i] = true;
                changed = true;
            }
        }
    }

    double x = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i + 1 == parts.size())
            x += division.rest * pointsPerByte;
        parts[i] = {x, raised[i] ? least : bytes(division.sizes[i]) * pointsPerByte};
        x += parts[i].width + division.gap;
    }
    return parts;
}

} // namespace corvane
