#pragma once

#include <QColor>

#include "core/color.h"

namespace corvane {

/// A colour of the engine as Qt has it, in eight bits: each part is the step of a screen that is nearest.
[[nodiscard]] QColor toQColor(const Color &color);

/// The same in all the bits that Qt keeps, for colours that are mixed further.
[[nodiscard]] QColor toExactQColor(const Color &color);

} // namespace corvane
