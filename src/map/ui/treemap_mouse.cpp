#include "map/ui/treemap_mouse.h"

#include <utility>

#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QStyleHints>

#include "map/ui/treemap_view.h"
#include "shell/ui/node_actions.h"

namespace corvane {

void TreemapMouse::press(const QMouseEvent &event)
{
    m_pressed = m_view.layout().at(event.position());
    m_pressPosition = event.position();
}

void TreemapMouse::move(const QMouseEvent &event)
{
    const QPointF way = event.position() - m_pressPosition;
    if (m_pressed >= 0 && way.manhattanLength() >= QGuiApplication::styleHints()->startDragDistance())
        drag(std::exchange(m_pressed, -1));
}

void TreemapMouse::release(const QMouseEvent &event)
{
    const int pressed = std::exchange(m_pressed, -1);
    if (pressed < 0 || m_view.layout().at(event.position()) != pressed)
        return;
    m_clicked = m_view.layout().tile(pressed).node;
    if (m_view.tileOpens(pressed))
        m_view.openTile(pressed);
}

// Opens a file. If the first click has opened a folder, the second one hits a tile inside it, which is not meant.
void TreemapMouse::doubleClick(const QMouseEvent &event)
{
    const int pressed = std::exchange(m_pressed, -1);
    if (event.button() == Qt::LeftButton && pressed >= 0 && m_view.layout().tile(pressed).node &&
        m_view.layout().tile(pressed).node == m_clicked.lock() && !m_view.tileOpens(pressed))
        m_view.openTile(pressed);
}

void TreemapMouse::drag(int tile)
{
    const std::shared_ptr<FileNode> node = m_view.layout().tile(tile).node;
    if (!node)
        return;
    auto *drag = new QDrag(&m_view); // deletes itself
    drag->setMimeData(makeMimeData(*node));
    m_view.clearHover();
    drag->exec(Qt::CopyAction);
    m_view.ungrabMouse();
}

} // namespace corvane
