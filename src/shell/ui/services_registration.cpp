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

Services *ServicesRegistration::create(QQmlEngine *, QJSEngine *)
{
    Q_ASSERT_X(registeredServices, "Services", "ServicesRegistration::setServices was not called");
    QJSEngine::setObjectOwnership(registeredServices, QJSEngine::CppOwnership);
    return registeredServices;
}

} // namespace corvane
