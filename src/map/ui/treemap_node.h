#pragma once

#include <QImage>
#include <QRectF>
#include <QSGTransformNode>

#include "map/ui/ring_node.h"

class QQuickWindow;
class QSGImageNode;
class QSGOpacityNode;

namespace corvane {

/// What the screen shows of a map: its picture, during a change of folder the other folder's picture, and
/// the rings above. A transform node for the same reason as the ring. Render thread.
class TreemapNode : public QSGTransformNode {
public:
    explicit TreemapNode(QQuickWindow &window);

    /// The map of the folder shown.
    void setPicture(const QImage &picture);
    /// The map that a change of folder comes from, and that of the folder inside in the colour of its tile; both
    /// null end the change.
    void setOtherPictures(const QImage &picture, const QImage &tinted);

    /// The picture's pixels fall on the screen's, wherever the item stands: `origin` is its place in the scene.
    void alignToPixels(QPointF origin, double devicePixelRatio);

    /// The folder shown fills `area`.
    void showStill(const QRectF &area);
    /// Between two folders: the map of the containing folder is drawn so large that the tile `tile` comes to
    /// `part` of its way to the whole area, and the map of the folder inside over that tile, at first in
    /// the tile's colour. `inward` tells which of the two is the folder shown.
    void showBetween(const QRectF &area, const QRectF &tile, double part, bool inward);

    RingNode &hoverRing() { return *m_hoverRing; }
    RingNode &focusRing() { return *m_focusRing; }

private:
    QSGImageNode *addPictureTo(QSGNode &parent, const QImage &picture);

    QQuickWindow &m_window;
    QSGOpacityNode *m_back = nullptr;  ///< the containing folder's map, or the only one
    QSGOpacityNode *m_front = nullptr; ///< the map of the folder inside
    QSGOpacityNode *m_own = nullptr;   ///< that map in its own colours
    QSGOpacityNode *m_tint = nullptr;  ///< that map in the colour of its tile, above
    QSGImageNode *m_picture = nullptr;
    QSGImageNode *m_other = nullptr;
    QSGImageNode *m_tinted = nullptr;
    RingNode *m_hoverRing = nullptr;
    RingNode *m_focusRing = nullptr;
};

} // namespace corvane
