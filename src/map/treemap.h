#pragma once

#include <span>
#include <vector>

#include "map/rect.h"

namespace corvane {

/// The squarified treemap layout (Bruls, Huizing, van Wijk 2000): pure, in double precision, unrounded.
struct Treemap {
    /// One rectangle per weight, in the same order; all zero if there is no area to lay out in. Weights must be in
    /// descending order.
    [[nodiscard]] static std::vector<Rect> squarify(std::span<const double> weights, const Rect &rect);
};

} // namespace corvane
