#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace corvane {

/// One part of a stacked bar, in points from the bar's left end.
struct BarPart {
    double x = 0;
    double width = 0;

    friend bool operator==(const BarPart &, const BarPart &) = default;
};

/// The input of `barLayout`.
struct BarDivision {
    std::span<const std::int64_t> sizes; ///< of the parts, in bytes
    double rest = 0;                     ///< bytes that belong to no part: left empty before the last part
    double width = 0;                    ///< of the whole bar, in points
    double gap = 0;                      ///< between two parts, in points
    double minimum = 0;                  ///< the width of the narrowest part, in points
};

/// Parts side by side across the bar. Widths are proportional to the sizes, except that no part is narrower than the
/// minimum, so that it can be seen and pointed at; the others shrink in proportion. Sizes of 0 or less count as 0; if
/// all do, every part has at most the minimum width. If the minimum does not fit, all parts are equal.
[[nodiscard]] std::vector<BarPart> barLayout(const BarDivision &division);

} // namespace corvane
