#pragma once

#include <string_view>

#include <QImage>

namespace corvane {

/// Whether a drawing in SVG is made of shapes, gradients and styles alone. Others refer to files and pictures, repeat
/// their parts until there are millions, move, or nest so deep that reading them ends the program. Any thread.
[[nodiscard]] bool isPlainDrawing(std::string_view svg);

/// A plain drawing, `pixels` wide and high, in its own proportions; null for any other. Any thread.
[[nodiscard]] QImage drawnIcon(std::string_view svg, int pixels);

} // namespace corvane
