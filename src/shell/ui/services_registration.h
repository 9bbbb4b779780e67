#pragma once

#include <QtQml/qqml.h>

#include "shell/services.h"

class QJSEngine;
class QQmlEngine;

namespace corvane {

/// Registers the program's services with QML as the singleton `Services`: `Services.defaults.didOnboard`,
/// `Services.updater.checkForUpdates()`. Main thread only.
class ServicesRegistration {
    Q_GADGET
    QML_FOREIGN(corvane::Services)
    QML_NAMED_ELEMENT(Services)
    QML_SINGLETON

public:
    /// The instance that QML sees. Call before the first QML file is loaded. Not owned; must outlive every engine.
    static void setServices(Services *services);
    /// The same services, as the default argument of presenters that QML creates without arguments. The program must
    /// set them first; otherwise this ends the program.
    [[nodiscard]] static Services &services();

    static Services *create(QQmlEngine *, QJSEngine *);
};

/// The types of its properties, whose enumerations QML reads by name: `UserDefaults.ReportMode.ask`.
struct UserDefaultsRegistration {
    Q_GADGET
    QML_FOREIGN(corvane::UserDefaults)
    QML_NAMED_ELEMENT(UserDefaults)
    QML_UNCREATABLE("one of the services")
};

struct CrashReporterRegistration {
    Q_GADGET
    QML_FOREIGN(corvane::CrashReporter)
    QML_NAMED_ELEMENT(CrashReporter)
    QML_UNCREATABLE("one of the services")
};

struct AppUpdaterRegistration {
    Q_GADGET
    QML_FOREIGN(corvane::AppUpdater)
    QML_NAMED_ELEMENT(AppUpdater)
    QML_UNCREATABLE("one of the services")
};

} // namespace corvane
