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

StorageStore &StoreRegistration::store()
{
    if (registeredStore == nullptr)
        qFatal("StoreRegistration::setStore was not called");
    return *registeredStore;
}

StorageStore *StoreRegistration::create(QQmlEngine *, QJSEngine *)
{
    QJSEngine::setObjectOwnership(&store(), QJSEngine::CppOwnership);
    return &store();
}

} // namespace corvane
