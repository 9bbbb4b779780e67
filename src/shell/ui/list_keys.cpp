#include "shell/ui/list_keys.h"

#include <algorithm>

#include <QKeyEvent>
#include <QMetaMethod>

#include "shell/ui/keyboard_item.h"

namespace corvane {

void ListKeys::setTarget(QQuickItem *target)
{
    if (m_target == target)
        return;
    if (m_target)
        m_target->removeEventFilter(this);
    m_target = target;
    if (m_target)
        m_target->installEventFilter(this);
    emit targetChanged();
}

void ListKeys::setModel(QAbstractItemModel *model)
{
    if (m_model == model)
        return;
    m_model = model;
    emit modelChanged();
}

bool ListKeys::eventFilter(QObject *, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto &press = *static_cast<QKeyEvent *>(event);
    if (!handle(press))
        return false;
    if (auto *const item = qobject_cast<KeyboardItem *>(m_target.data()))
        item->useKeyboard();
    event->accept();
    return true;
}

bool ListKeys::handle(const QKeyEvent &event)
{
    return handleCommand(event) || handleTyping(event);
}

bool ListKeys::handleCommand(const QKeyEvent &event)
{
    // Emit a signal only if it is connected: otherwise the key keeps its default meaning.
    const auto send = [this](void (ListKeys::*signal)(int)) {
        if (m_current < 0 || !isSignalConnected(QMetaMethod::fromSignal(signal)))
            return false;
        (this->*signal)(m_current);
        return true;
    };
    const auto sendForAll = [this](void (ListKeys::*signal)()) {
        if (!isSignalConnected(QMetaMethod::fromSignal(signal)))
            return false;
        (this->*signal)();
        return true;
    };
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::ControlModifier)
        return event.key() == Qt::Key_A && sendForAll(&ListKeys::selectAllWanted);
    if (modifiers == Qt::ShiftModifier)
        return event.key() == Qt::Key_F10 ? send(&ListKeys::menuWanted) : extendTo(rowAfterKey(event.key()));
    if (modifiers != Qt::NoModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_Space:
        return send(&ListKeys::toggleWanted);
    case Qt::Key_Delete:
        return send(&ListKeys::selectWanted);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return send(&ListKeys::openWanted);
    case Qt::Key_Menu:
        return send(&ListKeys::menuWanted);
    case Qt::Key_Backspace:
        return sendForAll(&ListKeys::upWanted);
    default:
        return m_navigates && moveTo(rowAfterKey(event.key()));
    }
}

bool ListKeys::handleTyping(const QKeyEvent &event)
{
    const QString typed = TypeToFind::typedText(event);
    if (typed.isEmpty() || !m_model)
        return false;
    const auto nameAt = [this](int row) { return isStop(row) ? m_model->index(row, 0).data().toString() : QString(); };
    static_cast<void>(moveTo(m_typeToFind.find(typed, event.timestamp(), m_current, rowCount(), nameAt)));
    return true;
}

bool ListKeys::moveTo(int row)
{
    if (row >= 0)
        emit moved(row);
    return row >= 0;
}

bool ListKeys::extendTo(int row)
{
    if (row < 0 || !m_navigates || !isSignalConnected(QMetaMethod::fromSignal(&ListKeys::extendWanted)))
        return false;
    emit extendWanted(row);
    return true;
}

bool ListKeys::isStop(int row) const
{
    return m_model->flags(m_model->index(row, 0)).testFlag(Qt::ItemIsEnabled);
}

int ListKeys::nearestStop(int row, int step) const
{
    for (; row >= 0 && row < rowCount(); row += step) {
        if (isStop(row))
            return row;
    }
    return -1;
}

int ListKeys::rowAfterKey(int key) const
{
    const int last = rowCount() - 1;
    if (last < 0)
        return -1;
    const auto forwards = [&](int from) {
        const int found = nearestStop(std::clamp(from, 0, last), 1);
        return found >= 0 ? found : lastRow();
    };
    const auto backwards = [&](int from) {
        const int found = nearestStop(std::clamp(from, 0, last), -1);
        return found >= 0 ? found : firstRow();
    };
    switch (key) {
    case Qt::Key_Up:
        return backwards(m_current - 1);
    case Qt::Key_Down:
        return forwards(m_current + 1);
    case Qt::Key_PageUp:
        return m_page > 0 ? backwards(m_current - m_page) : -1;
    case Qt::Key_PageDown:
        return m_page > 0 ? forwards(m_current + m_page) : -1;
    case Qt::Key_Home:
        return firstRow();
    case Qt::Key_End:
        return lastRow();
    default:
        return -1;
    }
}

} // namespace corvane
