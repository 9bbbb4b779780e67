#include "cli/size_bar.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace corvane {

std::string sizeBar(double fraction, std::size_t columns)
{
    constexpr std::size_t eighths = 8;
    constexpr std::array<std::string_view, eighths> parts{"", "▏", "▎", "▍", "▌", "▋", "▊", "▉"};

    const std::size_t full = columns * eighths;
    auto length = static_cast<std::size_t>(std::lround(std::clamp(fraction, 0.0, 1.0) * static_cast<double>(full)));
    if (fraction > 0)
        length = std::max<std::size_t>(length, 1);

    std::string bar;
    for (std::size_t i = 0; i < length / eighths; ++i)
        bar += "█";
    bar += parts[length % eighths];
    const std::size_t taken = (length + eighths - 1) / eighths;
    return bar.append(columns - taken, ' ');
}

} // namespace corvane
