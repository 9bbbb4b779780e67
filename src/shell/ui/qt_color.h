#pragma once

#include <QColor>

#include "core/color.h"

namespace corvane {

/// Converts a colour of the engine to 8 bits per channel, rounded to the nearest step.
[[nodiscard]] QColor toQColor(const Color &color);

/// The same at Qt's full precision, for colours that are blended further.
[[nodiscard]] QColor toExactQColor(const Color &color);

/// A Qt colour, without its opacity, as a colour of the engine.
[[nodiscard]] Color toColor(const QColor &color);

} // namespace corvane
