#pragma once

#include <string_view>

#include <QImage>

namespace corvane {

/// Whether an SVG drawing consists of shapes, gradients and styles alone. Others may refer to files and images, repeat
/// their parts millions of times, animate, or nest so deep that parsing them crashes the program. Any thread.
[[nodiscard]] bool isPlainDrawing(std::string_view svg);

/// A plain drawing, `pixels` wide and high, in its own proportions; null for any other. Any thread.
[[nodiscard]] QImage drawnIcon(std::string_view svg, int pixels);

} // namespace corvane
