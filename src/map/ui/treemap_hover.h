#pragma once

#include <QObject>
#include <QPointF>
#include <QTimer>

namespace corvane {

/// Where the pointer is on the map, which tile it is over, and whether it has rested there for long enough that the
/// tile is explained. Main thread.
class TreemapHover : public QObject {
    Q_OBJECT

public:
    explicit TreemapHover(QObject *parent = nullptr);

    [[nodiscard]] int tile() const { return m_tile; } ///< -1 for none
    [[nodiscard]] bool isExplained() const { return m_explained; }
    [[nodiscard]] QPointF pointer() const { return m_pointer; }
    [[nodiscard]] bool isInside() const { return m_isInside; }

    /// Takes note of a movement, which is told by the next `tell`: a mouse moves more often than the screen shows a
    /// frame. No tile is told at once. True where the tile is another one than before.
    bool moveTo(QPointF pointer, int tile);
    /// Emits what is to be told; called once a frame.
    void tell();
    /// The pointer is not on the map any more.
    void leave();
    /// The pointer is over no tile that counts.
    void clear();
    /// The tiles are made anew: that number means nothing any more.
    void forgetTile();

signals:
    void moved();
    void changed();

private:
    int m_tile = -1;
    QPointF m_pointer;
    bool m_isInside = false;
    bool m_isMoved = false;   ///< moved() is still to come
    bool m_isChanged = false; ///< changed() is still to come
    bool m_explained = false;
    QTimer m_delay;
};

} // namespace corvane
