#pragma once

#include <QObject>
#include <QQmlComponent>
#include <QtQml/qqmlregistration.h>

#include "core/store/storage_store.h"

namespace corvane {

/// One screen that the program has: which item of the sidebar it is, and what is made when it is shown.
class WindowScreen : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_CLASSINFO("DefaultProperty", "content")
    Q_PROPERTY(corvane::StorageStore::SidebarItem item MEMBER item)
    Q_PROPERTY(QQmlComponent *content MEMBER content)
    /// Whether the selection bar lies over the screen, which then leaves room for it by itself.
    Q_PROPERTY(bool goesBeneathBar MEMBER goesBeneathBar)

public:
    explicit WindowScreen(QObject *parent = nullptr) : QObject(parent) {}

    StorageStore::SidebarItem item = StorageStore::SidebarItem::overview;
    QQmlComponent *content = nullptr;
    bool goesBeneathBar = false;
};

} // namespace corvane
