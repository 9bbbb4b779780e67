#pragma once

#include <memory>

#include <QPointF>

#include "core/file_node.h"

class QMouseEvent;

namespace corvane {

class TreemapView;

/// Handles the left mouse button in the map: a click opens a folder or package, a double click a file, and dragging a
/// tile drags its item to another program. Owned by the view. Main thread only.
class TreemapMouse {
public:
    explicit TreemapMouse(TreemapView &view) : m_view(view) {}

    void press(const QMouseEvent &event);
    void move(const QMouseEvent &event);
    void release(const QMouseEvent &event);
    /// The second press of a double click.
    void doubleClick(const QMouseEvent &event);
    /// Ends a press without a click.
    void forgetPress() { m_pressed = -1; }

private:
    void drag(int tile);

    TreemapView &m_view;
    int m_pressed = -1; // the tile; -1 for none
    QPointF m_pressPosition;
    std::weak_ptr<FileNode> m_clicked; // the last item that was clicked
};

} // namespace corvane
