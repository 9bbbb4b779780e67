#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// Scrolls a Flickable for keyboard users: by its keys, and to keep the focused control in view. Main thread only.
class PageScroller : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// The Flickable.
    Q_PROPERTY(QQuickItem *page MEMBER m_page NOTIFY changed REQUIRED)
    /// The Flickable's own, which C++ can only read through here, in points.
    Q_PROPERTY(qreal contentY MEMBER m_contentY NOTIFY changed REQUIRED)
    Q_PROPERTY(qreal contentHeight MEMBER m_contentHeight NOTIFY changed REQUIRED)

public:
    explicit PageScroller(QObject *parent = nullptr) : QObject(parent) {}

    /// Scrolls for a key: by a line, by most of a page, or to an end. Returns false for other keys.
    Q_INVOKABLE bool scroll(int key, int modifiers);
    /// Scrolls an item into view with a small margin, moving as little as possible. Does nothing for items that are not
    /// on the page.
    Q_INVOKABLE void reveal(const QQuickItem *item);

signals:
    void changed();
    /// The Flickable is to set its `contentY`.
    void moved(qreal y);

private:
    void moveTo(qreal y);

    QPointer<QQuickItem> m_page;
    qreal m_contentY = 0;
    qreal m_contentHeight = 0;
};

} // namespace corvane
