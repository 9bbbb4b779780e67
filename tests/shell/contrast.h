#pragma once

#include <algorithm>
#include <cmath>

#include <QColor>

namespace corvane {

/// A translucent colour blended over an opaque ground.
inline QColor over(const QColor &color, const QColor &ground)
{
    const auto part = [&](float top, float below) { return top * color.alphaF() + below * (1 - color.alphaF()); };
    return QColor::fromRgbF(part(color.redF(), ground.redF()), part(color.greenF(), ground.greenF()),
                            part(color.blueF(), ground.blueF()));
}

/// The contrast ratio of two opaque colours as WCAG 2 defines it, from 1 to 21.
inline double contrast(const QColor &one, const QColor &other)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    const auto luminance = [&](const QColor &color) {
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
    };
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace corvane
