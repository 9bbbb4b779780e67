#include "shell/ui/qt_color.h"

#include <cmath>

namespace corvane {

QColor toQColor(const Color &color)
{
    const auto part = [](double value) { return static_cast<int>(std::lround(value * 255)); };
    return {part(color.red), part(color.green), part(color.blue)};
}

QColor toExactQColor(const Color &color)
{
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue));
}

Color toColor(const QColor &color)
{
    return {color.redF(), color.greenF(), color.blueF()};
}

} // namespace corvane
