#pragma once

#include <QtQml/qqml.h>

#include "shell/services.h"

class QJSEngine;
class QQmlEngine;

namespace corvane {

/// Makes the program's services known to QML as the singleton `Services`: `Services.defaults.didOnboard`,
/// `Services.updater.checkForUpdates()`. Main thread only.
class ServicesRegistration {
    Q_GADGET
    QML_FOREIGN(corvane::Services)
    QML_NAMED_ELEMENT(Services)
    QML_SINGLETON

public:
    /// What QML sees. To be called before the first QML file is loaded; the services must outlive every engine and
    /// stay their caller's.
    static void setServices(Services *services);

    static Services *create(QQmlEngine *, QJSEngine *);
};

/// The types behind it, whose enumerations QML reads by their names: `UserDefaults.ReportMode.ask`.
struct UserDefaultsRegistration {
    Q_GADGET
    QML_FOREIGN(corvane::UserDefaults)
    QML_NAMED_ELEMENT(UserDefaults)
    QML_UNCREATABLE("one of the services")
};

struct ApiRegistration {
    Q_GADGET
    QML_FOREIGN(corvane::API)
    QML_NAMED_ELEMENT(API)
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
