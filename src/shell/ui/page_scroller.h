#pragma once

#include <QMetaObject>
#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// Scrolls a Flickable for the keyboard: by its keys, and so that the control that the keyboard comes to is in
/// sight. Main thread only.
class PageScroller : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// The Flickable.
    Q_PROPERTY(QQuickItem *page READ page WRITE setPage NOTIFY pageChanged REQUIRED)

public:
    explicit PageScroller(QObject *parent = nullptr) : QObject(parent) {}

    [[nodiscard]] QQuickItem *page() const { return m_page; }
    void setPage(QQuickItem *page);

    /// What a key does: a line, most of a page, an end. False for a key that scrolls nothing.
    Q_INVOKABLE bool scroll(int key, int modifiers);
    /// Brings an item of the page into sight with a little room around it, moving as little as possible.
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
