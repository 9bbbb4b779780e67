#include "shell/ui/page_scroller.h"

#include <algorithm>

#include "shell/ui/theme.h"

namespace corvane {

namespace {

constexpr qreal line = Theme::scrollLine();
constexpr qreal kept = Theme::scrollPageKept();
constexpr qreal room = Theme::revealMargin();

} // namespace

bool PageScroller::scroll(int key, int modifiers)
{
    if (!m_page || Qt::KeyboardModifiers(QFlag(modifiers)).setFlag(Qt::KeypadModifier, false) != Qt::NoModifier)
        return false;
    switch (key) {
    case Qt::Key_Up:
        moveTo(m_contentY - line);
        return true;
    case Qt::Key_Down:
        moveTo(m_contentY + line);
        return true;
    case Qt::Key_PageUp:
        moveTo(m_contentY - std::max(line, m_page->height() - kept));
        return true;
    case Qt::Key_PageDown:
        moveTo(m_contentY + std::max(line, m_page->height() - kept));
        return true;
    case Qt::Key_Home:
        moveTo(0);
        return true;
    case Qt::Key_End:
        moveTo(m_contentHeight);
        return true;
    default:
        return false;
    }
}

void PageScroller::reveal(const QQuickItem *item)
{
    if (!m_page || item == nullptr || !m_page->isAncestorOf(item))
        return;
    const QRectF place = item->mapRectToItem(m_page, QRectF(QPointF(), item->size())).translated(0, m_contentY);
    if (place.top() - room < m_contentY)
        moveTo(place.top() - room);
    else if (place.bottom() + room > m_contentY + m_page->height())
        moveTo(std::min(place.top() - room, place.bottom() + room - m_page->height()));
}

void PageScroller::moveTo(qreal y)
{
    const qreal lowest = m_contentHeight - m_page->height();
    emit moved(std::clamp<qreal>(y, 0, std::max<qreal>(0, lowest)));
}

} // namespace corvane
