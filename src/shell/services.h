#pragma once

#include <QObject>

#include "shell/app_updater.h"
#include "shell/crash_reporter.h"
#include "shell/user_defaults.h"
#include "shell/web_service.h"

namespace corvane {

/// The program's services besides the store, as the screens see them; QML uses all but the web service. All references
/// must outlive this object. Main thread only.
class Services : public QObject {
    Q_OBJECT
    Q_PROPERTY(corvane::UserDefaults *defaults READ defaults CONSTANT)
    Q_PROPERTY(corvane::CrashReporter *crashReporter READ crashReporter CONSTANT)
    Q_PROPERTY(corvane::AppUpdater *updater READ updater CONSTANT)

public:
    Services(UserDefaults &defaults, API &api, CrashReporter &crashReporter, AppUpdater &updater,
             QObject *parent = nullptr)
        : QObject(parent), m_defaults(&defaults), m_api(&api), m_crashReporter(&crashReporter), m_updater(&updater)
    {
    }

    [[nodiscard]] UserDefaults *defaults() const { return m_defaults; }
    [[nodiscard]] API *api() const { return m_api; }
    [[nodiscard]] CrashReporter *crashReporter() const { return m_crashReporter; }
    [[nodiscard]] AppUpdater *updater() const { return m_updater; }

private:
    UserDefaults *const m_defaults;
    API *const m_api;
    CrashReporter *const m_crashReporter;
    AppUpdater *const m_updater;
};

} // namespace corvane
