#pragma once

#include <QtQml/qqml.h>

#include "core/store/storage_store.h"

class QJSEngine;
class QQmlEngine;

namespace corvane {

/// Registers the program's store with QML as the singleton `Store`. QML reads its enumerations by their C++ names:
/// `Store.phase === Store.Phase.scanning`, `Store.sidebar = Store.SidebarItem.explorer`. Main thread only.
class StoreRegistration {
    Q_GADGET
    QML_FOREIGN(corvane::StorageStore)
    QML_NAMED_ELEMENT(Store)
    QML_SINGLETON

public:
    /// The instance that QML sees. Call before the first QML file is loaded. Not owned; must outlive every engine.
    static void setStore(StorageStore *store);
    /// The same store, as the default argument of presenters and models that QML creates without arguments. The program
    /// must set it first; otherwise this ends the program.
    [[nodiscard]] static StorageStore &store();

    static StorageStore *create(QQmlEngine *, QJSEngine *);
};

} // namespace corvane
