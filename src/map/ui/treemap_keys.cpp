#include "map/ui/treemap_keys.h"

#include <algorithm>
#include <vector>

#include <QKeyEvent>

#include "core/store/qt_words.h"
#include "map/ui/treemap_view.h"

namespace corvane {

bool TreemapKeys::press(const QKeyEvent &event)
{
    return runCommand(event) || findTyped(event);
}

bool TreemapKeys::runCommand(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const int focused = m_view.focusedTile();
    const bool hasTile = focused >= 0;
    if (modifiers == Qt::ControlModifier && event.key() == Qt::Key_Up)
        return m_view.goUp();
    if (modifiers == Qt::ControlModifier && event.key() == Qt::Key_A)
        return m_view.selectAll();
    if (modifiers == Qt::ShiftModifier && event.key() == Qt::Key_F10)
        return m_view.showMenu();
    if (modifiers != Qt::NoModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_Left:
        return moveFocus(TreemapLayout::Direction::left);
    case Qt::Key_Right:
        return moveFocus(TreemapLayout::Direction::right);
    case Qt::Key_Up:
        return moveFocus(TreemapLayout::Direction::up);
    case Qt::Key_Down:
        return moveFocus(TreemapLayout::Direction::down);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_view.openTile(focused);
        return hasTile;
    case Qt::Key_Space:
        m_view.toggleTile(focused);
        return hasTile;
    case Qt::Key_Delete:
        m_view.selectTile(focused);
        return hasTile;
    case Qt::Key_Escape:
    case Qt::Key_Backspace:
        return m_view.goUp();
    case Qt::Key_Menu:
        return m_view.showMenu();
    default:
        return false;
    }
}

bool TreemapKeys::moveFocus(TreemapLayout::Direction direction)
{
    if (m_view.focusedTile() < 0)
        return false;
    if (const int next = m_view.layout().neighbour(m_view.focusedTile(), direction); next >= 0)
        m_view.focusTile(next);
    return true;
}

bool TreemapKeys::findTyped(const QKeyEvent &event)
{
    const QString typed = TypeToFind::typedText(event);
    if (typed.isEmpty() || m_view.focusedTile() < 0)
        return false;
    const TreemapLayout &layout = m_view.layout();
    // Only the tiles of the folder's own items take the focus.
    std::vector<int> tops;
    for (int i = 0; i < layout.count(); ++i) {
        if (layout.tile(i).depth == 0)
            tops.push_back(i);
    }
    const auto current = static_cast<int>(std::ranges::find(tops, layout.top(m_view.focusedTile())) - tops.begin());
    const auto at = [&](int place) { return tops[static_cast<std::size_t>(place)]; };
    const int found = m_typeToFind.find(typed, event.timestamp(), current, static_cast<int>(tops.size()),
                                        [&](int place) { return displayText(layout.tile(at(place)).label); });
    if (found >= 0)
        m_view.focusTile(at(found));
    return true;
}

} // namespace corvane
