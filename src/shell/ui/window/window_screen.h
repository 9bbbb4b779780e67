#pragma once

#include <QObject>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include "core/store/storage_store.h"

namespace corvane {

/// One screen that the program has: which item of the sidebar it is, and what is made when it is shown. What it is made
/// of is in the file `source`, which is not read before that, so that a start takes as long as its first screen; or in
/// the component `content`.
class WindowScreen : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_CLASSINFO("DefaultProperty", "content")
    Q_PROPERTY(corvane::StorageStore::SidebarItem item MEMBER item)
    Q_PROPERTY(QUrl source MEMBER source)
    Q_PROPERTY(QQmlComponent *content MEMBER content)
    /// Whether the selection bar lies over the screen, which then leaves room for it by itself.
    Q_PROPERTY(bool goesBeneathBar MEMBER goesBeneathBar)

public:
    explicit WindowScreen(QObject *parent = nullptr) : QObject(parent) {}

    StorageStore::SidebarItem item = StorageStore::SidebarItem::overview;
    /// What the screen is made from, read now if it has not been yet; null for none.
    [[nodiscard]] QQmlComponent *loaded()
    {
        if (content == nullptr && !source.isEmpty())
            content = new QQmlComponent(qmlEngine(this), qmlContext(this)->resolvedUrl(source), this);
        return content;
    }

    QUrl source;
    QQmlComponent *content = nullptr;
    bool goesBeneathBar = false;
};

} // namespace corvane
