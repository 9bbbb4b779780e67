#pragma once

#include <functional>
#include <memory>

#include <QAccessible>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtTest/QtTest>

#include "shell/ui/shell_ui.h"

namespace corvane {

/// A window with one piece of QML, for testing components by mouse and keyboard.
class QuickScene {
public:
    /// `body` is placed in a Window of 600 x 400 points; imports other than Corvane.Shell go in `imports`.
    explicit QuickScene(const QByteArray &body, const QByteArray &imports = {})
        : QuickScene(Document{"import QtQuick\nimport QtQuick.Window\nimport QtQuick.Controls.Basic\n"
                              "import Corvane.Shell\n" +
                              imports + "Window { width: 600; height: 400; visible: true; color: Theme.window\n" +
                              body + "\n}"})
    {
    }
    /// A whole QML file, whose root is a window.
    struct Document {
        QByteArray text;
    };
    explicit QuickScene(const Document &document)
    {
        setUpShell(m_engine);
        QQmlComponent component(&m_engine);
        component.setData(document.text, QUrl(QStringLiteral("qrc:/scene.qml")));
        m_window.reset(qobject_cast<QQuickWindow *>(component.create()));
        m_errors = component.errorString();
        if (m_window) {
            m_window->show();
            m_window->requestActivate();
            m_shown = QTest::qWaitForWindowActive(m_window.get());
        }
    }

    [[nodiscard]] bool isShown() const { return m_shown; }
    [[nodiscard]] const QString &errors() const { return m_errors; }
    [[nodiscard]] QQuickWindow *window() const { return m_window.get(); }
    [[nodiscard]] QQmlEngine &engine() { return m_engine; }

    /// The object with this objectName.
    [[nodiscard]] QObject *object(const char *name) const
    {
        return m_window->findChild<QObject *>(QLatin1String(name));
    }
    [[nodiscard]] QQuickItem *item(const char *name) const { return qobject_cast<QQuickItem *>(object(name)); }

    /// Whether the sheet or menu with this objectName is open; it may be created when it is first opened.
    [[nodiscard]] bool isOpen(const char *name) const
    {
        const QObject *const made = object(name);
        return made != nullptr && made->property("opened").toBool();
    }

    /// The first visible item that matches; null if there is none.
    [[nodiscard]] QQuickItem *find(const std::function<bool(QQuickItem *)> &rule) const
    {
        return findBelow(m_window->contentItem(), rule);
    }
    /// Calls `each` with every item that is visible and not transparent, parents before their children.
    void visit(const std::function<void(QQuickItem &)> &each) const { visitBelow(*m_window->contentItem(), each); }
    /// The visible item with this objectName; null if there is none.
    [[nodiscard]] QQuickItem *visibleItem(const char *name) const
    {
        return find([&](QQuickItem *item) { return item->objectName() == QLatin1String(name); });
    }
    /// The visible item with this accessible name and role; null if there is none.
    [[nodiscard]] QQuickItem *named(const QString &name, QAccessible::Role role) const
    {
        return find([&](QQuickItem *item) { return accessibleName(item) == name && accessibleRole(item) == role; });
    }

    void click(QQuickItem *item) const
    {
        QTest::mouseClick(m_window.get(), Qt::LeftButton, Qt::NoModifier, centre(item));
    }
    void hover(QQuickItem *item) const { QTest::mouseMove(m_window.get(), centre(item)); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(m_window.get(), key, modifiers);
    }

    [[nodiscard]] static QAccessibleInterface *accessible(QObject *object)
    {
        return QAccessible::queryAccessibleInterface(object);
    }
    [[nodiscard]] static QString accessibleName(QObject *object)
    {
        QAccessibleInterface *const interface = accessible(object);
        return interface ? interface->text(QAccessible::Name) : QString();
    }
    [[nodiscard]] static QAccessible::Role accessibleRole(QObject *object)
    {
        QAccessibleInterface *const interface = accessible(object);
        return interface ? interface->role() : QAccessible::NoRole;
    }

private:
    static QPoint centre(QQuickItem *item)
    {
        return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
    }

    static QQuickItem *findBelow(QQuickItem *item, const std::function<bool(QQuickItem *)> &rule)
    {
        if (!item->isVisible())
            return nullptr;
        if (rule(item))
            return item;
        for (QQuickItem *child : item->childItems()) {
            if (QQuickItem *found = findBelow(child, rule))
                return found;
        }
        return nullptr;
    }

    static void visitBelow(QQuickItem &item, const std::function<void(QQuickItem &)> &each)
    {
        if (!item.isVisible() || item.opacity() == 0)
            return;
        each(item);
        for (QQuickItem *child : item.childItems())
            visitBelow(*child, each);
    }

    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    QString m_errors;
    bool m_shown = false;
};

} // namespace corvane
