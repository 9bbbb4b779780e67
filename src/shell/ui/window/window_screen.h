#pragma once

#include <QObject>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include "core/store/storage_store.h"

namespace corvane {

/// One screen of the program: its sidebar item, and what to create when it is shown. That is either the file `source`,
/// which is not loaded before then, so that startup loads the first screen only, or the component `content`.
class WindowScreen : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_CLASSINFO("DefaultProperty", "content")
    Q_PROPERTY(corvane::StorageStore::SidebarItem item MEMBER item)
    Q_PROPERTY(QUrl source MEMBER source)
    Q_PROPERTY(QQmlComponent *content MEMBER content)
    /// Whether the selection bar covers the screen, which must then leave room for it.
    Q_PROPERTY(bool goesBeneathBar MEMBER goesBeneathBar)

public:
    explicit WindowScreen(QObject *parent = nullptr) : QObject(parent) {}

    StorageStore::SidebarItem item = StorageStore::SidebarItem::overview;
    /// The screen's component, loaded on first use; null if there is none.
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
