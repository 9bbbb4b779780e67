#pragma once

#include <QObject>
#include <QPointF>
#include <QTimer>

namespace corvane {

/// The pointer's position on the map, the tile under it, and whether the info pill of that tile is shown. The pill is
/// shown once the pointer has stayed on one tile for `Theme::pillDelayDuration`; it then follows the pointer from tile
/// to tile until it leaves them. Main thread only.
class TreemapHover : public QObject {
    Q_OBJECT

public:
    explicit TreemapHover(QObject *parent = nullptr);

    [[nodiscard]] int tile() const { return m_tile; } ///< -1 for none
    [[nodiscard]] bool isPillShown() const { return m_isPillShown; }
    [[nodiscard]] QPointF pointer() const { return m_pointer; }
    [[nodiscard]] bool isInside() const { return m_isInside; }

    /// Sets the pointer's position and the tile under it; -1 for none. Defers the signals until `emitPending`, because
    /// a mouse moves more often than a frame is drawn, except that leaving the tiles is announced immediately. Returns
    /// whether the tile has changed.
    bool moveTo(QPointF pointer, int tile);
    /// Emits the deferred signals. Called once per frame.
    void emitPending();
    /// The pointer has left the map.
    void leave();
    /// Treats the pointer as being over no tile, and hides the pill.
    void clear();
    /// Sets the tile to none, because the tiles were replaced and the index is no longer valid. The pill stays for the
    /// next tile.
    void resetTile();

signals:
    void moved();   ///< the pointer
    void changed(); ///< the tile, or whether its pill is shown

private:
    int m_tile = -1;
    QPointF m_pointer;
    bool m_isInside = false;
    bool m_isMoved = false;   ///< moved() is deferred
    bool m_isChanged = false; ///< changed() is deferred
    bool m_isPillShown = false;
    QTimer m_delay;
};

} // namespace corvane
