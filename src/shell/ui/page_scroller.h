#pragma once

#include <QMetaObject>
#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// Scrolls a Flickable for keyboard users: by its keys, and to keep the focused control in view. Main thread only.
class PageScroller : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// The Flickable.
    Q_PROPERTY(QQuickItem *page READ page WRITE setPage NOTIFY pageChanged REQUIRED)

public:
    explicit PageScroller(QObject *parent = nullptr) : QObject(parent) {}

    [[nodiscard]] QQuickItem *page() const { return m_page; }
    void setPage(QQuickItem *page);

    /// Scrolls for a key: by a line, by most of a page, or to an end. Returns false for other keys.
    Q_INVOKABLE bool scroll(int key, int modifiers);
    /// Scrolls an item of the page into view with a small margin, moving as little as possible.
    Q_INVOKABLE void reveal(const QQuickItem *item);

signals:
    void pageChanged();

private:
    void followWindow();
    void followFocus();
    void moveTo(qreal y);

    QPointer<QQuickItem> m_page;
    QMetaObject::Connection m_focus;
};

} // namespace corvane
