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

/// What a stacked bar divides.
struct BarDivision {
    std::span<const std::int64_t> sizes; ///< of the parts, in bytes
    double rest = 0;                     ///< bytes that belong to no part: left empty before the last part
    double width = 0;                    ///< of the whole bar, in points
    double gap = 0;                      ///< between two parts, in points
    double minimum = 0;                  ///< the width of the narrowest part, in points
};

/// Parts side by side from end to end of the bar. Widths follow the sizes, except that no part is narrower than
/// the minimum, so that it can be seen and pointed at; the others give way in proportion. Sizes of 0 or less
/// count as 0; where all are, nothing is wider than the minimum. Where not even the minimum fits, all parts are
/// equal.
[[nodiscard]] std::vector<BarPart> barLayout(const BarDivision &division);

} // namespace corvane
