#include "shell/ui/page_scroller.h"

#include <algorithm>

#include <QQuickWindow>

namespace corvane {

namespace {

// In points.
constexpr qreal line = 40;
constexpr qreal kept = 40; // points of the previous page that stay visible
constexpr qreal room = 20;

} // namespace

void PageScroller::setPage(QQuickItem *page)
{
    if (m_page == page)
        return;
    if (m_page)
        m_page->disconnect(this);
    m_page = page;
    if (m_page)
        connect(m_page, &QQuickItem::windowChanged, this, &PageScroller::followWindow);
    followWindow();
    emit pageChanged();
}

void PageScroller::followWindow()
{
    disconnect(m_focus);
    if (m_page && m_page->window() != nullptr) {
        m_focus = connect(m_page->window(), &QQuickWindow::activeFocusItemChanged, this, &PageScroller::followFocus);
    }
}

void PageScroller::followFocus()
{
    const QQuickItem *const item = m_page->window()->activeFocusItem();
    // The item under the pointer is already visible, and must not move away.
    if (item != nullptr && m_page->isAncestorOf(item) && item->property("visualFocus").toBool())
        reveal(item);
}

bool PageScroller::scroll(int key, int modifiers)
{
    if (!m_page || Qt::KeyboardModifiers(QFlag(modifiers)).setFlag(Qt::KeypadModifier, false) != Qt::NoModifier)
        return false;
    const qreal top = m_page->property("contentY").toReal();
    switch (key) {
    case Qt::Key_Up:
        moveTo(top - line);
        return true;
    case Qt::Key_Down:
        moveTo(top + line);
        return true;
    case Qt::Key_PageUp:
        moveTo(top - std::max(line, m_page->height() - kept));
        return true;
    case Qt::Key_PageDown:
        moveTo(top + std::max(line, m_page->height() - kept));
        return true;
    case Qt::Key_Home:
        moveTo(0);
        return true;
    case Qt::Key_End:
        moveTo(m_page->property("contentHeight").toReal());
        return true;
    default:
        return false;
    }
}

void PageScroller::reveal(const QQuickItem *item)
{
    if (!m_page || item == nullptr)
        return;
    const qreal top = m_page->property("contentY").toReal();
    const QRectF place = item->mapRectToItem(m_page, QRectF(QPointF(), item->size())).translated(0, top);
    if (place.top() - room < top)
        moveTo(place.top() - room);
    else if (place.bottom() + room > top + m_page->height())
        moveTo(std::min(place.top() - room, place.bottom() + room - m_page->height()));
}

void PageScroller::moveTo(qreal y)
{
    const qreal lowest = m_page->property("contentHeight").toReal() - m_page->height();
    m_page->setProperty("contentY", std::clamp<qreal>(y, 0, std::max<qreal>(0, lowest)));
}

} // namespace corvane
