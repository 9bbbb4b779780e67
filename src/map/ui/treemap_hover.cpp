#include "map/ui/treemap_hover.h"

#include <utility>

#include "shell/ui/theme.h"

namespace corvane {

TreemapHover::TreemapHover(QObject *parent) : QObject(parent)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(Theme::pillDelayDuration());
    connect(&m_delay, &QTimer::timeout, this, [this] {
        m_isPillShown = true;
        emit changed();
    });
}

bool TreemapHover::moveTo(QPointF pointer, int tile)
{
    m_isInside = true;
    m_pointer = pointer;
    m_isMoved = true;
    if (tile == m_tile)
        return false;
    if (tile < 0) {
        clear();
        return true;
    }
    m_tile = tile;
    m_isChanged = true;
    if (!m_isPillShown)
        m_delay.start();
    return true;
}

void TreemapHover::emitPending()
{
    if (std::exchange(m_isMoved, false))
        emit moved();
    if (std::exchange(m_isChanged, false))
        emit changed();
}

void TreemapHover::leave()
{
    m_isInside = false;
    clear();
}

void TreemapHover::clear()
{
    m_delay.stop();
    m_isPillShown = false;
    resetTile();
}

void TreemapHover::resetTile()
{
    m_tile = -1;
    emit changed();
}

} // namespace corvane
