#pragma once

#include <array>
#include <memory>

#include <QColor>
#include <QImage>
#include <QRectF>
#include <QSGTexture>
#include <QSGTransformNode>

class QQuickWindow;
class QSGImageNode;

namespace corvane {

/// A ring around a rectangle: one line inside its edge and one outside.
struct RingStyle {
    double inner = 0; ///< points
    QColor innerColor;
    double outer = 0; ///< points
    QColor outerColor;

    friend bool operator==(const RingStyle &, const RingStyle &) = default;
};

/// Draws a ring as nine slices of a small texture, so that moving it is cheap for a rectangle of any size. A transform
/// node, because with a plain one the software renderer ignores the item's offset for all but the first child. Render
/// thread only.
class RingNode : public QSGTransformNode {
public:
    explicit RingNode(QQuickWindow &window);
    ~RingNode() override;

    /// `rect` must be aligned to device pixels.
    void show(const QRectF &rect, double cornerRadius, const RingStyle &style, double devicePixelRatio);
    void hide();

private:
    struct Picture {
        QSize size; ///< device pixels
        double cornerRadius = 0;
        double devicePixelRatio = 1;
        RingStyle style;

        friend bool operator==(const Picture &, const Picture &) = default;
    };
    [[nodiscard]] static QImage paint(const Picture &picture);

    QQuickWindow &m_window;
    std::array<QSGImageNode *, 9> m_parts{}; ///< row by row; owned as child nodes, created with the first texture
    std::unique_ptr<QSGTexture> m_texture;
    Picture m_picture;
};

} // namespace corvane
