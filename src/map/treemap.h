#pragma once

#include <span>
#include <vector>

#include "map/rect.h"

namespace corvane {

/// The squarified treemap layout (Bruls, Huizing, van Wijk 2000): pure, in double precision, unrounded.
struct Treemap {
    /// One rectangle for each weight, in the same order; all zero where nothing can be laid out. Weights come
    /// largest first.
    [[nodiscard]] static std::vector<Rect> squarify(std::span<const double> weights, const Rect &rect);
};

} // namespace corvane
