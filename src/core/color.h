#pragma once

namespace corvane {

/// An opaque colour in sRGB, each part from 0 to 1.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;

    friend constexpr bool operator==(const Color &, const Color &) = default;
};

/// The contrast of two colours as WCAG 2 defines it, from 1 to 21. Pure.
[[nodiscard]] double contrast(const Color &a, const Color &b);

inline constexpr Color brandA{0.33, 0.43, 1.0};
inline constexpr Color brandB{0.69, 0.34, 0.98};

} // namespace corvane
