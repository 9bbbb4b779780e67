#include "shell/ui/store_registration.h"

#include <QJSEngine>

namespace corvane {

namespace {

StorageStore *registeredStore = nullptr;

} // namespace

void StoreRegistration::setStore(StorageStore *store)
{
    registeredStore = store;
}

StorageStore *StoreRegistration::create(QQmlEngine *, QJSEngine *)
{
    Q_ASSERT_X(registeredStore, "Store", "StoreRegistration::setStore was not called");
    QJSEngine::setObjectOwnership(registeredStore, QJSEngine::CppOwnership);
    return registeredStore;
}

} // namespace corvane
