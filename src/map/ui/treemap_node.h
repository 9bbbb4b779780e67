#pragma once

#include <QImage>
#include <QRectF>
#include <QSGTransformNode>

#include "map/ui/ring_node.h"

class QQuickWindow;
class QSGImageNode;
class QSGOpacityNode;

namespace corvane {

/// The scene graph node of a map: its picture, the other folder's picture while the folder changes, and the rings above
/// them. A transform node for the same reason as `RingNode`. Render thread only.
class TreemapNode : public QSGTransformNode {
public:
    explicit TreemapNode(QQuickWindow &window);

    /// The map of the folder shown.
    void setPicture(const QImage &picture);
    /// For a transition between two folders: the map of the folder being left, and the inner folder's map in the colour
    /// of its tile. Null pictures end the transition.
    void setOtherPictures(const QImage &picture, const QImage &tinted);

    /// Aligns the picture's pixels with those of the screen. `origin` is the item's position in the scene.
    void alignToPixels(QPointF origin, double devicePixelRatio);

    /// Shows the current folder's map alone, filling `area`.
    void showStill(const QRectF &area);
    /// Shows one moment of a transition. The outer folder's map is enlarged so that `tile`, the inner folder's, has
    /// grown by `part`, from 0 to 1, of the way to the whole area. The inner folder's map covers that tile, at first in
    /// the tile's colour. `inward` is true if the inner folder is the current one.
    void showBetween(const QRectF &area, const QRectF &tile, double part, bool inward);

    RingNode &hoverRing() { return *m_hoverRing; }
    RingNode &focusRing() { return *m_focusRing; }

private:
    QSGImageNode *addPictureTo(QSGNode &parent, const QImage &picture);

    QQuickWindow &m_window;
    // All nodes are owned by the scene graph as descendants of this one.
    QSGOpacityNode *m_back = nullptr;  ///< the outer folder's map, or the only one
    QSGOpacityNode *m_front = nullptr; ///< the inner folder's map
    QSGOpacityNode *m_own = nullptr;   ///< that map in its own colours
    QSGOpacityNode *m_tint = nullptr;  ///< that map in the colour of its tile, on top
    QSGImageNode *m_picture = nullptr;
    QSGImageNode *m_other = nullptr;
    QSGImageNode *m_tinted = nullptr;
    RingNode *m_hoverRing = nullptr;
    RingNode *m_focusRing = nullptr;
};

} // namespace corvane
