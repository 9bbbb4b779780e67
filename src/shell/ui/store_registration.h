#pragma once

#include <QtQml/qqml.h>

#include "core/store/storage_store.h"

class QJSEngine;
class QQmlEngine;

namespace corvane {

/// Makes the program's store known to QML as the singleton `Store`. Its enumerations are read from it with
/// their C++ names: `Store.phase === Store.Phase.scanning`, `Store.sidebar = Store.SidebarItem.explorer`.
/// Main thread only.
class StoreRegistration {
    Q_GADGET
    QML_FOREIGN(corvane::StorageStore)
    QML_NAMED_ELEMENT(Store)
    QML_SINGLETON

public:
    /// The store that QML sees. To be called before the first QML file is loaded; the store must outlive every
    /// engine and stays its caller's.
    static void setStore(StorageStore *store);
    /// The same store, for the presenters and models that QML makes: QML calls a constructor without arguments, so
    /// this is what stands in as theirs. Setting it first is up to the program; without it the program ends.
    [[nodiscard]] static StorageStore &store();

    static StorageStore *create(QQmlEngine *, QJSEngine *);
};

} // namespace corvane
