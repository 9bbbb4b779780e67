#include "map/ui/treemap_accessible.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QHash>
#include <QQuickWindow>

#include "map/ui/treemap_view.h"

namespace corvane {

namespace {

QRect onScreen(const TreemapView &view, const QRectF &rect)
{
    if (!view.window())
        return {};
    const QRectF inScene = view.mapRectToScene(rect);
    return {view.window()->mapToGlobal(inScene.topLeft().toPoint()), inScene.size().toSize()};
}

class TileAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    TileAccessible(TreemapView &view, int index) : m_view(&view), m_index(index) {}

    bool isValid() const override { return m_view && m_index < m_view->layout().count(); }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_view ? m_view->window() : nullptr; }
    QAccessibleInterface *parent() const override { return QAccessible::queryAccessibleInterface(m_view); }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QRect rect() const override { return isValid() ? onScreen(*m_view, m_view->layout().rect(m_index)) : QRect(); }

    QString text(QAccessible::Text text) const override
    {
        return isValid() && text == QAccessible::Name ? m_view->tileName(m_index) : QString();
    }
    void setText(QAccessible::Text, const QString &) override {}

    QAccessible::State state() const override
    {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.focusable = true;
        state.focused = m_view->hasActiveFocus() && m_view->focusedTile() == m_index;
        state.selectable = hasNode();
        state.checkable = hasNode();
        state.checked = state.selected = m_view->tileIsSelected(m_index);
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
    }
    QStringList actionNames() const override
    {
        if (!isValid())
            return {};
        QStringList names;
        if (m_view->tileOpens(m_index))
            names << pressAction();
        if (hasNode())
            names << toggleAction();
        return names << setFocusAction();
    }
    void doAction(const QString &name) override
    {
        if (!isValid())
            return;
        if (name == pressAction()) {
            m_view->openTile(m_index);
        } else if (name == toggleAction()) {
            m_view->toggleTile(m_index);
        } else if (name == setFocusAction()) {
            m_view->forceActiveFocus(Qt::OtherFocusReason);
            m_view->focusTile(m_index);
        }
    }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    bool hasNode() const { return m_view->layout().tile(m_index).node != nullptr; }

    QPointer<TreemapView> m_view;
    int m_index;
};

/// The map itself. Its tiles are made when they are asked for and stay with it.
class TreemapAccessible : public QAccessibleObject {
public:
    explicit TreemapAccessible(TreemapView &view) : QAccessibleObject(&view) {}
    ~TreemapAccessible() override { dropTiles(); }

    void dropTiles()
    {
        for (const QAccessible::Id id : std::as_const(m_tiles))
            QAccessible::deleteAccessibleInterface(id);
        m_tiles.clear();
    }

    QAccessible::Role role() const override { return QAccessible::List; }
    QRect rect() const override { return onScreen(view(), view().boundingRect()); }
    QWindow *window() const override { return view().window(); }
    QString text(QAccessible::Text text) const override
    {
        return text == QAccessible::Name ? QStringLiteral("Space Map") : QString();
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.focusable = true;
        state.focused = view().hasActiveFocus();
        state.invisible = !view().isVisible();
        return state;
    }
    QAccessibleInterface *parent() const override
    {
        // Items without a name of their own are left out of what a reader sees.
        for (QQuickItem *item = view().parentItem(); item; item = item->parentItem()) {
            QAccessibleInterface *candidate = QAccessible::queryAccessibleInterface(item);
            if (candidate && candidate->indexOfChild(this) >= 0)
                return candidate;
        }
        return QAccessible::queryAccessibleInterface(view().window());
    }

    int childCount() const override { return view().layout().count(); }
    QAccessibleInterface *child(int index) const override
    {
        if (index < 0 || index >= childCount())
            return nullptr;
        if (const auto known = m_tiles.constFind(index); known != m_tiles.constEnd())
            return QAccessible::accessibleInterface(*known);
        auto *tile = new TileAccessible(view(), index);
        m_tiles.insert(index, QAccessible::registerAccessibleInterface(tile));
        return tile;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        for (auto it = m_tiles.constBegin(); it != m_tiles.constEnd(); ++it) {
            if (QAccessible::accessibleInterface(it.value()) == child)
                return it.key();
        }
        return -1;
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        if (!view().window())
            return nullptr;
        return child(view().layout().at(view().mapFromScene(view().window()->mapFromGlobal(QPoint(x, y)))));
    }
    QAccessibleInterface *focusChild() const override
    {
        return view().hasActiveFocus() ? child(view().focusedTile()) : nullptr;
    }

private:
    TreemapView &view() const { return *static_cast<TreemapView *>(object()); }

    mutable QHash<int, QAccessible::Id> m_tiles;
};

QAccessibleInterface *makeInterface(const QString &className, QObject *object)
{
    if (className != QLatin1String(TreemapView::staticMetaObject.className()))
        return nullptr;
    auto *view = qobject_cast<TreemapView *>(object);
    return view ? new TreemapAccessible(*view) : nullptr;
}

} // namespace

void installTreemapAccessibility()
{
    QAccessible::installFactory(makeInterface);
}

void notifyTilesChanged(TreemapView *view)
{
    if (!QAccessible::isActive())
        return;
    if (auto *map = dynamic_cast<TreemapAccessible *>(QAccessible::queryAccessibleInterface(view)))
        map->dropTiles();
    QAccessibleEvent event(view, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&event);
}

void notifyTileFocused(TreemapView *view, int index)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(view, QAccessible::Focus);
    event.setChild(index);
    QAccessible::updateAccessibility(&event);
}

} // namespace corvane
