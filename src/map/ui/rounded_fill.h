#pragma once

#include <map>
#include <vector>

#include <QImage>
#include <QRect>

namespace corvane {

/// Fills rectangles with rounded corners like QPainter with antialiasing, in a third of its time for tiles of 24 pixels
/// and half of it for 60: QPainter builds a path for each, this class renders a corner's coverage mask once.
class RoundedFill {
public:
    /// @param picture premultiplied 32-bit colours; nothing else may draw into it meanwhile
    explicit RoundedFill(QImage &picture) : m_picture(picture) {}

    /// Clipped to the picture.
    /// @param pixels in device pixels of the picture
    /// @param radius of the corners, in pixels
    /// @param color  opaque
    void fill(const QRect &pixels, double radius, QRgb color);

private:
    /// The coverage of each pixel of the top left corner, from 0 to 255.
    struct Corner {
        int size = 0; ///< pixels along each edge
        std::vector<int> coverage;
    };
    [[nodiscard]] static Corner cornerOf(double radius);

    QImage &m_picture;
    std::map<double, Corner> m_corners; ///< by radius
};

} // namespace corvane
