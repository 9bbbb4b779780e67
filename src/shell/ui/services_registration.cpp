#include "shell/ui/services_registration.h"

#include <QJSEngine>

namespace corvane {

namespace {

Services *registeredServices = nullptr;

} // namespace

void ServicesRegistration::setServices(Services *services)
{
    registeredServices = services;
}

Services &ServicesRegistration::services()
{
    if (registeredServices == nullptr)
        qFatal("ServicesRegistration::setServices was not called");
    return *registeredServices;
}

Services *ServicesRegistration::create(QQmlEngine *, QJSEngine *)
{
    QJSEngine::setObjectOwnership(&services(), QJSEngine::CppOwnership);
    return &services();
}

} // namespace corvane
